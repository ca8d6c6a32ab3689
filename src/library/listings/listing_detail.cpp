#include "library/listings/listing_detail.h"

#include "contracts/conversions.h"
#include "library/controls/drawn_later.h"
#include "library/followups/follow_up_rows.h"
#include "library/frame/statements.h"
#include "library/listings/fcxx_tables.h"
#include "library/listings/listing_detail_fields.h"
#include "library/listings/listing_matching.h"
#include "library/lists/list_grid.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr DetailTab tabs[] = {{u"详细信息", u"key1"},
                              {u"保密信息", u"key5"},
                              {u"跟进记录", u"key2"},
                              {u"匹配客源", u"key4"},
                              {u"照片", u"key3"}};

constexpr int countedTabs[] = {CustomersTab, FollowUpsTab};

constexpr int hiddenCustomerColumns[] = {0};
constexpr ListGrid customerGrid{
    .format =
        u" |方式  |状态  | 委托编号  | 客户名称    | 需求片区                 |需求楼层  |需求面积         "
        u"|求购价格(万元)|求租价格(元/月)|需求房型    | 委托日期        |部门       |经纪人    ",
    .hiddenColumns = hiddenCustomerColumns,
    .alternateColor = softYellow};

DetailTables tables()
{
    return {.tabs = tabs,
            .firstTab = PicturesTab,
            .fieldName = u"qzFcTxt",
            .fields = detailFields(),
            .boxName = u"Txt",
            .boxes = detailBoxes(),
            .keyColumn = ListingKey,
            .countedTabs = countedTabs};
}

SqlText recordStatement(const QString &id)
{
    return SqlText(u"select A.*,C.mtname as 部门名称,B.username as 业务员 from (fyxx A left join "
                   u"su_membership B on A.用户ID=B.userID) left join su_usertype C on "
                   u"B.UserTypeID=C.mtID where 房源ID="_s) +
           quoted(id);
}

/// The agent is the user who wrote it, unlike where follow-ups are listed by themselves.
SqlText followUpsStatement(const QString &id)
{
    return SqlText(u"select 操作日期,跟进内容,C.mtname as 部门,B.username as "
                   u"业务员,iif(下次提醒=1,'是','否'),提醒日期,"
                   u"iif(提醒范围=0 or 提醒范围 is "
                   u"null,'本人',iif(提醒范围=1,'本部','全部')),提醒内容,处理结果,处理日期,"
                   u"跟进ID from (fygj A left join su_membership B on A.用户ID=B.userID)"
                   u" left join su_usertype C on B.UserTypeID=C.mtID where 房源ID="_s) +
           quoted(id) + QStringView(u" order by 操作日期 desc");
}

SqlText pictureCountStatement(const QString &id)
{
    return SqlText(u"select count(rowindex) from pubAttach where isActive=1 and isPicture=1 and ids="_s) +
           quoted(id);
}

} // namespace

ListingDetail::ListingDetail(Module &module, const VSFlexGrid &list)
    : RecordDetail(module, list, tables())
    , m_followUps(addGrid(u"VsGj"_s))
    , m_customers(addGrid(u"VsP"_s))
    , m_reasons(module, MatchReasons::Of::Listing)
{}

void ListingDetail::setUpGrids()
{
    m_followUpsLayout.forget();
    ListGrid followUps = followUpGrid();
    followUps.alternateColor = softYellow;
    setUpListGrid(m_followUps, followUps);
    setUpListGrid(m_customers, customerGrid);
}

bool ListingDetail::load(int tab, const QString &id)
{
    switch (tab) {
    case ListingTab:
    case OwnerTab:
        return LoadData(id);
    case FollowUpsTab:
        return LoadDataGj(id);
    case CustomersTab:
        return LoadDataMsg(id);
    case PicturesTab:
        return countPictures(id);
    default:
        return true;
    }
}

SqlText ListingDetail::countStatement(const QString &id) const
{
    return listingCountStatement(id);
}

bool ListingDetail::LoadData(const QString &id)
{
    return trapped(u"-->LoadData::", [&] { return loadFields(recordStatement(id)); });
}

bool ListingDetail::LoadDataGj(const QString &id)
{
    return trapped(u"-->LoadDataGj::",
                   [&] { return loadGrid(m_followUps, followUpsStatement(id), &m_followUpsLayout); });
}

bool ListingDetail::LoadDataMsg(const QString &id)
{
    return trapped(u"-->LoadDataMsg::", [&] {
        const auto listing = openRows(app().Db(), measuresStatement(id));
        return !isEmpty(*listing) &&
               loadGrid(m_customers, matchingCustomersStatement(DetailRecord(listing->GetRows())), nullptr);
    });
}

bool ListingDetail::countPictures(const QString &id)
{
    return trapped(u"-->CountPictures::", [&] {
        m_pictureCount = 0;
        m_pictureCount = WholePart(Val(singleValue(app().Db(), pictureCountStatement(id))));
        return true;
    });
}

QString ListingDetail::picturesText() const
{
    return m_pictureCount == 0 ? u"暂无照片"_s : u"共有%1张照片"_s.arg(m_pictureCount);
}

void ListingDetail::mFrmGj_ReturnData(const QString &psID, bool pbNew)
{
    const auto show = [&] {
        if (pbNew)
            m_followUps.setRows(m_followUps.Rows() + 1);
        showFollowUp(app().Db(), m_followUps, pbNew ? m_followUps.Rows() - 1 : m_followUps.Row(), psID);
        return true;
    };
    trapped(u"-->mFrmGj_ReturnData::", [&] { return drawnLater(m_followUps, show); });
    countLater();
}

} // namespace ebtq
