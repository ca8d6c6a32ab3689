#include "library/customers/customer_detail.h"

#include "library/controls/drawn_later.h"
#include "library/customers/customer_matching.h"
#include "library/customers/khxx_tables.h"
#include "library/followups/follow_up_rows.h"
#include "library/frame/statements.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr DetailTab tabs[] = {
    {u"详细信息", u"key1"}, {u"保密信息", u"key4"}, {u"匹配房源", u"key2"}, {u"跟进记录", u"key3"}};

/// Both bounds of a range; `column` is the lower one.
std::optional<QString> asRange(const DetailRecord &record, QStringView column)
{
    return record.text(column) + u'-' + record.text(column.chopped(1).toString() + u'2');
}

/// Deliberately the caption of 29 differs in one character from the editor's.
constexpr DetailField fields[] = {
    {8, u"委托编号", RequestTab, u"客源编号"},
    {9, u"客户姓名", RequestTab, u"客户名称"},
    {10, u"委托等级", RequestTab, u"委托等级"},
    {28, u"信息来源", RequestTab, u"信息来源"},
    {12, u"地段要求", RequestTab, u"地段要求"},
    {13, u"需求片区", RequestTab, u"地区"},
    {14, u"房屋朝向", RequestTab, u"朝向"},
    {15, u"购房用途", RequestTab, u"用途"},
    {20, u"楼层要求", RequestTab, u"楼层1", asRange},
    {16, u"装修要求", RequestTab, u"装修要求"},
    {17, u"物业要求", RequestTab, u"物业要求"},
    {18, u"需求房型", RequestTab, u"需求户型"},
    {19, u"面积要求", RequestTab, u"面积1", asRange},
    {21, u"求购价格", RequestTab, u"求购价格1", asRange},
    {11, u"求租价格", RequestTab, u"求租价格1", asRange},
    {22, u"付款方式", RequestTab, u"付款方式"},
    {29, u"付拥方式", RequestTab, u"付佣方式"},
    {30, u"委托协议", RequestTab, u"委托协议"},
    {31, u"委托日期", RequestTab, u"委托日期"},
    {23, u"经纪人", RequestTab, u"业务员"},
    {24, u"客户姓名", ContactTab, u"客户名称"},
    {25, u"联系电话", ContactTab, u"电话"},
    {27, u"电子邮件", ContactTab, u"邮件"},
    {26, u"其他联系方式", ContactTab, u"其他联系方式"},
};
constexpr DetailBox boxes[] = {{-1, u"个人备注", u"备注"}};

constexpr int countedTabs[] = {MatchingListingsTab, CustomerFollowUpsTab};
constexpr DetailTables tables{.tabs = tabs,
                              .firstTab = RequestTab,
                              .fieldName = u"qzTxt",
                              .fields = fields,
                              .boxName = u"txt",
                              .boxes = boxes,
                              .keyColumn = CustomerKey,
                              .countedTabs = countedTabs};

constexpr int hiddenListingColumns[] = {0};
constexpr ListGrid listingGrid{.format = u" |房源编号  |交易  |城区                |楼盘字典        |栋座    "
                                         u"|房号  |楼层|房型    |面积      |朝向|售总价    "
                                         u"|租总价    |委托日      |部门  |经纪人",
                               .hiddenColumns = hiddenListingColumns,
                               .selectionColor = softYellow};

} // namespace

std::span<const DetailField> customerDetailFields()
{
    return fields;
}

CustomerDetail::CustomerDetail(Module &module, const VSFlexGrid &list)
    : RecordDetail(module, list, tables)
    , m_listings(addGrid(u"VsP"_s))
    , m_followUps(addGrid(u"VsGj"_s))
    , m_reasons(module, MatchReasons::Of::Customer)
{}

void CustomerDetail::setUpGrids()
{
    m_followUpsLayout.forget();
    ListGrid followUps = followUpGrid();
    followUps.selectionColor = softYellow;
    setUpListGrid(m_followUps, followUps);
    setUpListGrid(m_listings, listingGrid);
}

bool CustomerDetail::load(int tab, const QString &id)
{
    switch (tab) {
    case RequestTab:
    case ContactTab:
        return LoadDataMsg(id);
    case MatchingListingsTab:
        return LoadDataFy(id);
    case CustomerFollowUpsTab:
        return LoadDataGj(id);
    default:
        return true;
    }
}

SqlText CustomerDetail::countStatement(const QString &id) const
{
    return customerCountStatement(id);
}

bool CustomerDetail::LoadDataMsg(const QString &id)
{
    return trapped(u"-->LoadDataMsg::", [&] {
        if (isThere(id, loadFields(requestStatement(id))))
            return true;
        emptyFields();
        return false;
    });
}

/// `found` as it is. Without a current request it is nothing that is missing.
bool CustomerDetail::isThere(const QString &id, bool found)
{
    if (!found && id == currentRecord())
        Q_EMIT requestGone();
    return found;
}

/// A request that cannot be read leaves the listings of the one before.
bool CustomerDetail::LoadDataFy(const QString &id)
{
    return trapped({}, [&] {
        const auto customer = openRows(app().Db(), requestStatement(id));
        return isThere(id, !isEmpty(*customer)) &&
               loadGrid(m_listings, matchingListingsStatement(DetailRecord(customer->GetRows())), nullptr);
    });
}

bool CustomerDetail::LoadDataGj(const QString &id)
{
    return trapped(u"-->LoadDataGj::",
                   [&] { return loadGrid(m_followUps, followUpsOf(id), &m_followUpsLayout); });
}

void CustomerDetail::mFrmGj_ReturnData(const QString &psID, bool pbNew)
{
    const auto show = [&] {
        if (pbNew) {
            m_followUps.setRows(m_followUps.Rows() + 1);
            m_followUps.setRow(m_followUps.Rows() - 1);
        }
        showFollowUp(app().Db(), m_followUps, m_followUps.Row(), psID);
        return true;
    };
    trapped(u"-->mFrmGj_ReturnData::", [&] { return drawnLater(m_followUps, show); });
    countLater();
}

} // namespace ebtq
