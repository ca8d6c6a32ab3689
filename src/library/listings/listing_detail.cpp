#include "library/listings/listing_detail.h"

#include "contracts/conversions.h"
#include "library/controls/drawn_later.h"
#include "library/frame/statements.h"
#include "library/listings/fcxx_list.h"
#include "library/listings/listing_detail_fields.h"
#include "library/listings/listing_matching.h"

namespace ebtq {

namespace {

/// Of both grids: an empty one in front, which is hidden.
constexpr int fixedColumns = 1;
constexpr int hiddenFollowUpColumns[] = {0, 11};

QString followUpsFormat()
{
    return QStringLiteral(
        " |跟进时间            |跟进内容                                          |部门    |经纪人  "
        "|下次提醒|提醒时间        |提醒范围|提醒内容                    |处理内容              "
        "|处理时间            |跟进ID");
}

QString customersFormat()
{
    return QStringLiteral(
        " |方式  |状态  | 委托编号  | 客户名称    | 需求片区                 |需求楼层  |需求面积         "
        "|求购价格(万元)|求租价格(元/月)|需求房型    | 委托日期        |部门       |经纪人    ");
}

SqlText recordStatement(const QString &id)
{
    SqlText sql(QStringLiteral("select A.*,C.mtname as 部门名称,B.username as 业务员 from (fyxx A left join "
                               "su_membership B on A.用户ID=B.userID) left join su_usertype C on "
                               "B.UserTypeID=C.mtID where 房源ID='"));
    sql += typed(id);
    sql += QStringView(u"'");
    return sql;
}

SqlText followUpsStatement(const QString &id)
{
    SqlText sql(QStringLiteral(
        "select 操作日期,跟进内容,C.mtname as 部门,B.username as 业务员,iif(下次提醒=1,'是','否'),提醒日期,"
        "iif(提醒范围=0 or 提醒范围 is null,'本人',iif(提醒范围=1,'本部','全部')),提醒内容,处理结果,处理日期,"
        "跟进ID from (fygj A left join su_membership B on A.用户ID=B.userID)"
        " left join su_usertype C on B.UserTypeID=C.mtID where 房源ID='"));
    sql += typed(id);
    sql += QStringView(u"' order by 操作日期 desc");
    return sql;
}

} // namespace

ListingDetail::ListingDetail(Module &module, const VSFlexGrid &list)
    : ModulePart(module)
    , m_list(list)
    , m_tabs(controls().add<qzVSTabCtl>(QStringLiteral("qzVSTabCtl1")))
    , m_followUps(controls().add<VSFlexGrid>(QStringLiteral("VsGj")))
    , m_customers(controls().add<VSFlexGrid>(QStringLiteral("VsP")))
{
    makeControls();
    connect(&m_tabs, &qzVSTabCtl::TabLeft, this, [this](int tab) { setPanelVisible(tab, false); });
    connect(&m_tabs, &qzVSTabCtl::TabEntered, this, [this](int tab) {
        setPanelVisible(tab, true);
        // Whatever row is current: without a listing nothing is found and nothing changes.
        if (isInited())
            ShowDetail(m_list.TextMatrix(m_list.Row(), ListingKey));
    });
}

void ListingDetail::makeControls()
{
    m_tabs.setTabs({{QStringLiteral("详细信息"), QStringLiteral("key1")},
                    {QStringLiteral("保密信息"), QStringLiteral("key5")},
                    {QStringLiteral("跟进记录"), QStringLiteral("key2")},
                    {QStringLiteral("匹配客源"), QStringLiteral("key4")},
                    {QStringLiteral("照片"), QStringLiteral("key3")}},
                   PicturesTab);
    for (int tab = ListingTab; tab <= PicturesTab; ++tab)
        controls().add<qzPanel>(QStringLiteral("pnlTab"), tab - 1).setVisible(tab == m_tabs.ActiveTab());
    for (const DetailField &field : detailFields()) {
        m_fields.push_back(&controls().add<qzTxt_S>(QStringLiteral("qzFcTxt"), field.number));
        m_fields.back()->setCaption(field.caption.toString());
        m_fields.back()->setKept(false);
    }
    for (const DetailBox &box : detailBoxes()) {
        m_boxes.push_back(&controls().add<TextBox>(QStringLiteral("Txt"), box.number, TextBox::Lines::Many));
        m_boxes.back()->setCaption(box.caption.toString());
        m_boxes.back()->setKept(false);
    }
}

template<class T> T &ListingDetail::control(const QString &name, int number)
{
    auto *found = qobject_cast<T *>(controls().find(name, number));
    if (!found)
        throw Failure(QStringLiteral("没有编号为 %1 的控件 %2！").arg(number).arg(name));
    return *found;
}

qzPanel &ListingDetail::pnlTab(int number)
{
    return control<qzPanel>(QStringLiteral("pnlTab"), number);
}

qzTxt_S &ListingDetail::qzFcTxt(int number)
{
    return control<qzTxt_S>(QStringLiteral("qzFcTxt"), number);
}

TextBox &ListingDetail::Txt(int number)
{
    return control<TextBox>(QStringLiteral("Txt"), number);
}

void ListingDetail::setPanelVisible(int tab, bool visible)
{
    pnlTab(tab - 1).setVisible(visible);
}

void ListingDetail::setUpGrids()
{
    m_followUpsLayout.forget();
    setUpListingGrid(m_followUps, fixedColumns, followUpsFormat());
    m_followUps.setToolTipText(listingToolTip());
    for (const int column : hiddenFollowUpColumns)
        m_followUps.setColHidden(column, true);
    setUpListingGrid(m_customers, fixedColumns, customersFormat());
    m_customers.setColHidden(0, true);
}

// Load

void ListingDetail::ShowDetail(const QString &id)
{
    const int tab = m_tabs.ActiveTab();
    const bool done = load(tab, id);
    Q_EMIT TabShown(tab, done && id == currentListing());
}

void ListingDetail::showCurrent()
{
    const QString id = currentListing();
    if (id.isEmpty())
        empty();
    ShowDetail(id);
}

QString ListingDetail::currentListing() const
{
    const int row = m_list.Row();
    return row >= m_list.FixedRows() && row < m_list.Rows() ? m_list.TextMatrix(row, ListingKey) : QString();
}

void ListingDetail::empty()
{
    for (qzTxt_S *field : m_fields) {
        field->setValue({});
        field->setText({});
    }
    for (TextBox *box : m_boxes)
        box->setText({});
    m_followUps.setRows(m_followUps.FixedRows());
    m_customers.setRows(m_customers.FixedRows());
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

bool ListingDetail::LoadData(const QString &id)
{
    return trapped(u"-->LoadData::", [&] {
        const auto rows = openRows(app().Db(), recordStatement(id));
        if (isEmpty(*rows))
            return false;
        fill(ListingRecord(rows->GetRows()));
        return true;
    });
}

void ListingDetail::fill(const ListingRecord &record)
{
    auto control = m_fields.cbegin();
    for (const DetailField &field : detailFields()) {
        qzTxt_S &shown = **control++;
        if (!field.valueColumn.isEmpty())
            shown.setValue(record.value(field.valueColumn));
        if (const auto text = field.text(record, field.column))
            shown.setText(*text);
    }
    auto box = m_boxes.cbegin();
    for (const DetailBox &each : detailBoxes())
        (*box++)->setText(record.text(each.column));
}

bool ListingDetail::loadInto(VSFlexGrid &grid, const SqlText &sql, KeptLayout *layout)
{
    return drawnLater(grid, [&] {
        grid.setRows(grid.FixedRows());
        const auto rows = openRows(app().Db(), sql);
        if (isEmpty(*rows))
            return true;
        grid.LoadArray(rows->GetRows(), fixedColumns);
        if (layout)
            layout->restore(layoutFile(), grid, app());
        return true;
    });
}

QString ListingDetail::picturesText() const
{
    return m_pictureCount == 0 ? QStringLiteral("暂无照片")
                               : QStringLiteral("共有%1张照片").arg(m_pictureCount);
}

bool ListingDetail::countPictures(const QString &id)
{
    return trapped(u"-->CountPictures::", [&] {
        SqlText sql(QStringLiteral(
            "select count(rowindex) from pubAttach where isActive=1 and isPicture=1 and ids='"));
        sql += typed(id);
        sql += QStringView(u"'");
        m_pictureCount = 0;
        m_pictureCount = WholePart(Val(singleValue(app().Db(), sql)));
        return true;
    });
}

bool ListingDetail::LoadDataGj(const QString &id)
{
    return trapped(u"-->LoadDataGj::",
                   [&] { return loadInto(m_followUps, followUpsStatement(id), &m_followUpsLayout); });
}

bool ListingDetail::LoadDataMsg(const QString &id)
{
    return trapped(u"-->LoadDataMsg::", [&] {
        const auto listing = openRows(app().Db(), measuresStatement(id));
        if (isEmpty(*listing))
            return false;
        return loadInto(m_customers, matchingCustomersStatement(listing->GetRows()), nullptr);
    });
}

} // namespace ebtq
