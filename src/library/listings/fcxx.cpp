#include "library/listings/fcxx.h"

#include "contracts/conversions.h"
#include "database/values/number_text.h"
#include "library/controls/drawn_later.h"
#include "library/followups/frm_gj.h"
#include "library/frame/desktop.h"
#include "library/frame/statements.h"
#include "library/frame/wait_cursor.h"
#include "library/listings/fcxx_controls.h"
#include "library/listings/fcxx_filter.h"
#include "library/listings/fcxx_list.h"
#include "library/listings/frm_fx.h"

#include <QScopedValueRollback>

namespace ebtq {

namespace {

constexpr int parameterGroup = 12;
constexpr double usualWheelRate = 5;
constexpr int noMenuAttribute = 99;

QString attachmentIcon()
{
    return QStringLiteral("mail-attachment");
}

} // namespace

Fcxx::Fcxx(Desktop &desktop)
    : Module(QStringLiteral("Fcxx"), desktop)
    , m_toolbar(controls().add<NavToolbar>(QStringLiteral("NavToolbar1")))
    , m_forSale(controls().add<CheckBox>(QStringLiteral("Chk"), 0))
    , m_forRent(controls().add<CheckBox>(QStringLiteral("Chk"), 1))
    , m_window(controls().add<XPCombo>(QStringLiteral("XPCmb")))
    , m_searchLabel(controls().add<Label>(QStringLiteral("lblSearch")))
    , m_searchBox(controls().add<SearchBox>(QStringLiteral("SearchBox1")))
    , m_findFilters(controls().add<CheckBox>(QStringLiteral("ChkFind")))
    , m_grid(controls().add<VSFlexGrid>(QStringLiteral("VS")))
    , m_detail(*this, m_grid)
    , m_layout(*this, m_grid)
{
    makeControls();
    connectFields();
    connectGrid();
}

Fcxx::~Fcxx()
{
    if (m_inited)
        Fcxx::IReportUI_Clear();
}

CheckBox &Fcxx::Chk(int number)
{
    if (number != 0 && number != 1)
        throw Failure(QStringLiteral("没有编号为%1的选择框！").arg(number));
    return number == 0 ? m_forSale : m_forRent;
}

void Fcxx::makeControls()
{
    for (const ListingField &field : listingFields())
        controls().add<qzTxt_S>(QStringLiteral("qzTxt"), field.number).setCaption(field.caption.toString());
    m_toolbar.setItems(listingCommands());
    m_forSale.setCaption(QStringLiteral("出售"));
    m_forRent.setCaption(QStringLiteral("出租"));
    m_searchLabel.setCaption(QStringLiteral("搜索(&F):"));
    m_findFilters.setCaption(QStringLiteral("过滤"));
    connect(&m_toolbar, &NavToolbar::ButtonClick, this, &Fcxx::pressed);
}

void Fcxx::connectFields()
{
    for (const ListingField &field : listingFields()) {
        const int number = field.number;
        connect(&qzTxt(number), &qzTxt_S::FieldHelp, this,
                [=, this](int left, int top, QString &text, QVariant &value) {
                    showHelp(number, left, top, text, value);
                });
        connect(&qzTxt(number), &qzTxt_S::FieldCheck, this,
                [=, this](const QString &base, const QString &valueField, const QString &textField,
                          QVariant &value,
                          QString &text) { checkField(number, base, valueField, textField, value, text); });
        connect(
            &qzTxt(number), &qzTxt_S::FieldGenericHelp, this,
            [this](const QString &key, const QVariant &control, const QVariant &left, const QVariant &top) {
                trapped(u"-->qzTxt_FieldGenericHelp::",
                        [&] { return app().ShowHelp(key, control, left, top); });
            });
    }
}

void Fcxx::connectGrid()
{
    connect(&m_grid, &VSFlexGrid::MouseDown, this, &Fcxx::VsMouseDown);
    connect(&m_grid, &VSFlexGrid::AfterRowColChange, this,
            [this](int oldRow, int, int newRow, int) { rowChanged(oldRow, newRow); });
    connect(&m_grid, &VSFlexGrid::GotFocus, this, [this] {
        if (m_wheel)
            m_wheel->bind(&m_grid);
    });
    connect(&m_grid, &VSFlexGrid::topRowChanged, this, [this] {
        if (!m_turning)
            scrolled();
    });
    connect(&m_grid, &VSFlexGrid::DblClick, this, &Fcxx::viewListing);
    connect(&m_layout, &ListLayout::notSaved, this, [this](const QString &file) {
        Q_EMIT Message(QStringLiteral("布局未能保存，下次打开时不会保留：") + file);
    });
    connect(&m_searchBox, &SearchBox::Search, this, &Fcxx::searchAgain);
    connect(&m_searchBox, &SearchBox::Clear, &m_grid, &VSFlexGrid::showAllRows);
    connect(&m_findFilters, &CheckBox::Click, this, [this] {
        m_searchBox.setFilterFlag(m_findFilters.Value() == 1);
        searchAgain(m_searchBox.Text());
    });
}

qzTxt_S &Fcxx::qzTxt(int number)
{
    // The field's row in the table says that the control is there.
    return static_cast<qzTxt_S &>(*controls().find(QStringLiteral("qzTxt"), listingField(number).number));
}

// Init and Clear

bool Fcxx::IReportUI_Init(HostApp &app, int moduleId)
{
    m_inited = true;
    m_moduleId = moduleId;
    setApp(&app);
    return trapped(u"-->IRptUI_Init::初始化过程发生错误，原因:", [this] {
        m_wheel = std::make_unique<MouseWheel>();
        connect(m_wheel.get(), &MouseWheel::Wheel, this, &Fcxx::turned);
        // Before anything asks the database: no command may want for its form after a start that failed.
        makeEditors();
        const double rate =
            Val(this->app().UserParameter(parameterGroup, QStringLiteral("mouseeventscrollrate")).Text);
        m_wheelRate = rate == 0 ? usualWheelRate : rate;
        setUpFilter();
        setUpGrid();
        m_detail.setUpGrids();
        setUpSearch();
        applyRights();
        m_layout.begin();
        return true;
    });
}

void Fcxx::setUpFilter()
{
    for (const ListingField &row : listingFields()) {
        qzTxt_S &field = qzTxt(row.number);
        field.set_help_flag(true);
        field.set_help_menuflag(true);
        field.set_judge_type(qzTxt_S::JudgeStatement);
        field.set_judge_time(qzTxt_S::JudgeOnLeaving);
        field.set_error_message(Trim(field.Caption()) + QStringLiteral("输入有误，请重新输入！"));
        field.set_help_type(row.pickerName.isEmpty() ? qzTxt_S::HostList : qzTxt_S::Custom);
        field.set_text_field_code(row.valueColumn.toString());
        field.set_text_field_name(row.textColumn.toString());
        field.set_help_code(row.helpCode.toString());
        field.set_judge_base(row.checkStatement.toString());
    }
    m_window.setItems(listingWindowCaptions());
}

void Fcxx::setUpGrid()
{
    setUpListGrid(m_grid, listingGrid());
    // Texts with their unit, but read as the amounts that they are, on the screen as on paper.
    for (const int column : {ListingSalePrice, ListingRent})
        m_grid.setColAlignment(column, VSFlexGrid::AlignRight);
    m_grid.setCellPicture(0, ListingMarker, attachmentIcon());
}

void Fcxx::setUpSearch()
{
    m_searchBox.setSetting(QStringLiteral("500"));
    m_searchBox.bindColumns(m_grid);
    m_searchBox.setFilterFlag(m_findFilters.Value() == 1);
}

void Fcxx::applyRights()
{
    const auto rights = app().Rights(m_moduleId);
    m_toolbar.setEnabled(QStringLiteral("new"), rights->Allowed(RightNew));
    m_toolbar.setEnabled(QStringLiteral("edit"), rights->Allowed(RightEdit));
    m_toolbar.setEnabled(QStringLiteral("delete"), rights->Allowed(RightDelete));
    m_toolbar.setEnabled(QStringLiteral("gj"), !app().Db().ReadOnly());
}

bool Fcxx::IReportUI_Clear()
{
    m_grid.setRows(0);
    m_place = {};
    m_layout.clear();
    m_editor.reset();
    m_followUpEditor.reset();
    m_wheel.reset();
    setApp(nullptr);
    m_inited = false;
    return true;
}

// In the middle of a load these come too, so they leave the release of the database to it.

void Fcxx::IReportUI_DoGetFormStatus(const QString &file)
{
    trappedWithoutDatabase(u"-->IRptUI_DoGetFormStatus::", [&] {
        m_layout.get(file);
        return true;
    });
}

void Fcxx::IReportUI_DoSaveFormStatus(const QString &file)
{
    trappedWithoutDatabase(u"-->IRptUI_DoSaveFormStatus::", [&] { return m_layout.save(file); });
}

QVariant Fcxx::IReportUI_Attributes(const QVariant &key)
{
    return Val(key) == noMenuAttribute ? QStringLiteral("nomenu") : QString();
}

// Load

bool Fcxx::IReportUI_Refresh()
{
    return trapped(u"-->IRptUI_Refresh::", [this] { return refresh(); });
}

bool Fcxx::refresh()
{
    notePlace();
    const QScopedValueRollback refreshing(m_refreshing, true);
    m_grid.setRows(m_grid.FixedRows());
    const WaitCursor wait(desktop());
    const SqlText sql = listingStatement(m_moduleId, listingWhere(filter(), desktop().now().date()));
    const auto rows = openRows(app().Db(), sql);
    return drawnLater(m_grid, [&] {
        show(*rows);
        return true;
    });
}

void Fcxx::show(Recordset &rows)
{
    if (!isEmpty(rows)) {
        m_grid.LoadArray(rows.GetRows());
        showAttachmentIcons();
    }
    Q_EMIT RefreshGetGridStatus();
    returnToPlace();
    setWheelRange();
    reportCount();
    search(m_searchBox.Text());
    m_refreshing = false;
    rowChanged(0, m_grid.Row());
}

void Fcxx::reportCount()
{
    Q_EMIT Message(QStringLiteral("共加载%1条记录").arg(m_grid.Rows() - 1));
}

/// A list that a failure left empty has no place; the one before it is returned to as soon as rows come
/// again.
void Fcxx::notePlace()
{
    const int row = m_grid.Row();
    if (row >= m_grid.FixedRows())
        m_place = {m_grid.TextMatrix(row, ListingKey), row - m_grid.TopRow(),
                   m_grid.TopRow() > m_grid.FixedRows()};
}

/// An agent who refreshes all day goes on at the same listing. A list that stood at its top stays there, so
/// that new listings are seen. Without a place the first row is current in the order that the layout has
/// given the list.
void Fcxx::returnToPlace()
{
    const int row = rowOf(m_place.listing);
    if (row < 0)
        return m_grid.setRow(m_grid.FixedRows());
    if (m_place.isScrolled)
        m_grid.setTopRow(row - m_place.rowsBelowTop);
    m_grid.setRow(row);
}

/// The first row of a listing; -1 when there is none.
int Fcxx::rowOf(const QString &listing) const
{
    const std::string key = listing.toStdString();
    for (int row = m_grid.FixedRows(); !key.empty() && row < m_grid.Rows(); ++row) {
        if (m_grid.cell(row, ListingKey) == key)
            return row;
    }
    return -1;
}

ListingFilter Fcxx::filter()
{
    return {.department = qzTxt(4).Text(),
            .departmentKey = Val(qzTxt(4).Value()),
            .agent = qzTxt(5).Text(),
            .agentKey = Val(qzTxt(5).Value()),
            .district = qzTxt(0).Text(),
            .building = qzTxt(7).Text(),
            .rooms = qzTxt(1).Text(),
            .forSale = m_forSale.Value() == 1,
            .forRent = m_forRent.Value() == 1,
            .state = qzTxt(3).Text(),
            .window = m_window.Text()};
}

void Fcxx::showAttachmentIcons()
{
    for (int row = m_grid.FixedRows(); row < m_grid.Rows(); ++row) {
        if (leadingNumber(m_grid.cell(row, ListingAttachments)) > 0)
            m_grid.setCellPicture(row, ListingMarker, attachmentIcon(), VSFlexGrid::AlignCentre);
    }
}

bool Fcxx::search(const QString &text)
{
    return text.isEmpty() || drawnLater(m_grid, [&] {
               m_grid.showAllRows();
               if (m_findFilters.Value() == 1) {
                   m_grid.hideRowsWithout(text, m_searchBox.columns());
                   return true;
               }
               const int row = m_grid.findRow(text, m_searchBox.columns(), m_grid.FixedRows());
               if (row >= 0)
                   m_grid.setRow(row);
               return row >= 0;
           });
}

void Fcxx::searchAgain(const QString &text)
{
    trappedWithoutDatabase(u"-->SearchBox1_Search::", [&] {
        if (!search(text))
            Q_EMIT Message(QStringLiteral("没有找到：") + text);
        return true;
    });
}

// Wheel

void Fcxx::setWheelRange()
{
    m_wheel->setMax(WholePart((m_grid.Rows() - 1) / m_wheelRate));
    m_wheel->setMin(m_grid.FixedRows());
}

/// While the list is refreshed the current row comes and goes; its detail is loaded once, at the end.
void Fcxx::rowChanged(int oldRow, int newRow)
{
    if (oldRow == newRow)
        return;
    scrolled();
    if (!m_refreshing && newRow >= m_grid.FixedRows() && newRow < m_grid.Rows())
        m_detail.ShowDetail(m_grid.TextMatrix(newRow, ListingKey));
}

/// The wheel goes on from where the list has been scrolled to.
void Fcxx::scrolled()
{
    if (m_wheel)
        m_wheel->setValue(WholePart(m_grid.TopRow() / m_wheelRate));
}

void Fcxx::turned(int value)
{
    // The rows that it scrolls to would set the wheel back by the step that it has just made.
    const QScopedValueRollback turning(m_turning, true);
    m_grid.setTopRow(std::min(WholePart((value - 1) * m_wheelRate), m_grid.Rows() - 1));
}

// Commands

void Fcxx::pressed(const QString &key)
{
    const QString command = key.toLower();
    if (command == u"all") {
        showOnly(false, false);
    } else if (command == u"buy") {
        showOnly(true, false);
    } else if (command == u"rent") {
        showOnly(false, true);
    } else if (command == u"new") {
        openEditor({}, false);
    } else if (command == u"edit") {
        editListing();
    } else if (command == u"delete") {
        deleteListing();
    } else if (command == u"gj") {
        writeFollowUp();
    } else if (command == u"refresh") {
        IReportUI_Refresh();
    } else if (command == u"close") {
        bool returning = true;
        Q_EMIT UnLoad(returning);
    }
}

void Fcxx::showOnly(bool forSale, bool forRent)
{
    m_forSale.setValue(forSale ? 1 : 0);
    m_forRent.setValue(forRent ? 1 : 0);
    clearFields();
    IReportUI_Refresh();
}

/// The time window stays. The values behind 楼盘, 房型 and 状态 stay too: nothing reads them.
void Fcxx::clearFields()
{
    for (const int number : {0, 4, 5})
        qzTxt(number).setValue({});
    for (const ListingField &field : listingFields())
        qzTxt(field.number).setText({});
}

// Look-up of the filter fields

HostPicker *Fcxx::picker(int number)
{
    HostPicker &result = app().Picker(listingField(number).pickerName.toString());
    if (!result.Ready(0))
        return nullptr;
    // The host shares a picker among its screens: what another one asked for must not narrow this list.
    ParameterList &parameters = result.Parameters();
    parameters.Clear();
    if (number == 0) {
        parameters.Item(QStringLiteral("pdmsfmx")).Value = 1;
    } else if (number == 5) {
        parameters.Item(QStringLiteral("组织类型")).Value = 1;
    } else if (const QString district = qzTxt(0).Text(); !district.isEmpty()) {
        parameters.Item(QStringLiteral("lock")).Value = 1;
        parameters.Item(QStringLiteral("地区")).Value = district;
    }
    return &result;
}

void Fcxx::showHelp(int number, int left, int top, QString &text, QVariant &value)
{
    trapped(u"-->qzTxt_FieldHelp::", [&] {
        HostPicker *list = picker(number);
        return list && list->Show(left, top, text, value, 0, {});
    });
}

void Fcxx::checkField(int number, const QString &base, const QString &valueField, const QString &textField,
                      QVariant &value, QString &text)
{
    trapped(u"-->qzTxt_FieldCheck::", [&] {
        const QString typedText = qzTxt(number).Text();
        if (!listingField(number).pickerName.isEmpty()) {
            HostPicker *list = picker(number);
            return list && list->Validate(base, valueField, textField, typedText, value, text);
        }
        // The host tells by itself of a check that failed for want of a database.
        return app().JudgeText(base, valueField, textField, typedText, value, text);
    });
}

} // namespace ebtq
