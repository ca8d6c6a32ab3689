#include "library/lists/list_module.h"

#include "contracts/conversions.h"
#include "library/controls/drawn_later.h"
#include "library/controls/shown_grid.h"
#include "library/frame/desktop.h"
#include "library/frame/self_print.h"
#include "library/frame/statements.h"
#include "library/frame/wait_cursor.h"

#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int parameterGroup = 12;
constexpr double usualWheelRate = 5;

} // namespace

ListModule::ListModule(const QString &name, Desktop &desktop, FailureNames failures, const ListTables &tables)
    : Module(name, desktop, std::move(failures))
    , m_tables(tables)
    , m_grid(controls().add<VSFlexGrid>(u"VS"_s))
    , m_layout(*this, m_grid)
{
    if (tables.filter) {
        m_filter.emplace(*this, *tables.filter);
        m_search.emplace(*this, m_grid, tables.searchSensitivity);
        connect(&*m_search, &ListSearch::notFound, this,
                [this](const QString &text) { raiseMessage(u"没有找到："_s + text); });
    }
    connectGrid();
    connect(&m_layout, &ListLayout::notSaved, this,
            [this](const QString &file) { raiseMessage(u"布局未能保存，下次打开时不会保留："_s + file); });
}

void ListModule::connectGrid()
{
    connect(&m_grid, &VSFlexGrid::AfterRowColChange, this,
            [this](int oldRow, int, int newRow, int) { currentRowChanged(oldRow, newRow); });
    connect(&m_grid, &VSFlexGrid::GotFocus, this, [this] {
        if (m_wheel)
            m_wheel->bind(&m_grid);
    });
    connect(&m_grid, &VSFlexGrid::topRowChanged, this, [this] {
        if (m_activity != Activity::Turning)
            scrolled();
    });
}

// Init and Clear

bool ListModule::IReportUI_Init(HostApp &app, int moduleId)
{
    m_moduleId = moduleId;
    setApp(&app);
    return trapped(u"-->IRptUI_Init::初始化过程发生错误，原因:", [this] {
        makeWheel();
        makeEditors();
        const double rate = Val(this->app().UserParameter(parameterGroup, u"mouseeventscrollrate"_s).Text);
        m_wheelRate = rate == 0 ? usualWheelRate : rate;
        if (m_filter)
            m_filter->setUp();
        setUpListGrid(m_grid, m_tables.grid);
        setUpGrids();
        if (m_search)
            m_search->setUp();
        applyRights();
        m_layout.begin();
        return true;
    });
}

void ListModule::makeWheel()
{
    if (m_tables.wheel == ListTables::Wheel::None)
        return;
    m_wheel = std::make_unique<MouseWheel>();
    if (m_tables.wheel == ListTables::Wheel::Absolute)
        connect(m_wheel.get(), &MouseWheel::Wheel, this, &ListModule::turnedTo);
    else
        connect(m_wheel.get(), &MouseWheel::Turned, this, &ListModule::turnedBy);
}

bool ListModule::IReportUI_Clear()
{
    m_place = {};
    m_layout.clear();
    m_wheel.reset();
    setApp(nullptr);
    return true;
}

// In the middle of a load these come too, so they leave the release of the database to it.

void ListModule::IReportUI_DoGetFormStatus(const QString &file)
{
    trappedWithoutDatabase(u"-->IRptUI_DoGetFormStatus::", [&] {
        m_layout.get(file);
        return true;
    });
}

void ListModule::IReportUI_DoSaveFormStatus(const QString &file)
{
    trappedWithoutDatabase(u"-->IRptUI_DoSaveFormStatus::", [&] { return m_layout.save(file); });
}

// Load

bool ListModule::IReportUI_Refresh()
{
    return trapped(m_tables.refreshTag, [this] { return refresh(); });
}

bool ListModule::refresh()
{
    notePlace();
    const QScopedValueRollback refreshing(m_activity, Activity::Refreshing);
    m_grid.setRows(m_grid.FixedRows());
    const WaitCursor wait(desktop());
    const auto rows = openRows(app().Db(), statement());
    return drawnLater(m_grid, [&] {
        show(*rows);
        return true;
    });
}

void ListModule::show(Recordset &rows)
{
    if (!isEmpty(rows)) {
        m_grid.LoadArray(rows.GetRows(), m_tables.firstColumn);
        rowsLoaded();
    }
    raiseRefreshGetGridStatus();
    returnToPlace();
    setWheelRange();
    tellCount();
    if (m_search)
        m_search->apply();
    m_activity = Activity::None;
    currentRowChanged(0, m_grid.Row());
}

void ListModule::tellCount()
{
    if (m_tables.tellsCount)
        raiseMessage(u"共加载%1条记录"_s.arg(m_grid.Rows() - 1));
}

void ListModule::rowsChanged()
{
    m_layout.recount();
    setWheelRange();
    tellCount();
}

// The current row

/// A list that a failure left empty has no place; the one before it is returned to as soon as rows come
/// again.
void ListModule::notePlace()
{
    const int row = m_grid.Row();
    if (row >= m_grid.FixedRows())
        m_place = {keyOf(row), row - m_grid.TopRow(), m_grid.TopRow() > m_grid.FixedRows()};
}

/// A refresh keeps the current row. A list that was scrolled to its top stays there, so that new rows are
/// seen. Without a kept row the first one in the layout's order becomes current.
void ListModule::returnToPlace()
{
    const int row = rowOf(m_place.key);
    if (row < 0)
        return m_grid.setRow(m_grid.FixedRows());
    if (m_place.isScrolled)
        m_grid.setTopRow(row - m_place.rowsBelowTop);
    m_grid.setRow(row);
}

int ListModule::rowOf(const QString &key) const
{
    const std::string wanted = key.toStdString();
    for (int row = m_grid.FixedRows(); !wanted.empty() && row < m_grid.Rows(); ++row) {
        if (m_grid.cell(row, m_tables.keyColumn) == wanted)
            return row;
    }
    return -1;
}

bool ListModule::isRowValid() const
{
    return m_grid.Row() >= m_grid.FixedRows() && m_grid.Row() < m_grid.Rows();
}

/// During a refresh the current row changes several times; it is reported once, at the end.
void ListModule::currentRowChanged(int oldRow, int newRow)
{
    if (oldRow == newRow)
        return;
    scrolled();
    if (m_activity != Activity::Refreshing && newRow >= m_grid.FixedRows() && newRow < m_grid.Rows())
        rowChanged(keyOf(newRow));
}

// Wheel

void ListModule::setWheelRange()
{
    if (!m_wheel)
        return;
    m_wheel->setMax(WholePart((m_grid.Rows() - 1) / m_wheelRate));
    m_wheel->setMin(m_grid.FixedRows());
}

/// The wheel continues from where the list was scrolled to.
void ListModule::scrolled()
{
    if (m_wheel)
        m_wheel->setValue(WholePart(m_grid.TopRow() / m_wheelRate));
}

void ListModule::turnedTo(int position)
{
    // The rows that it scrolls to would set the wheel back by the step that it has just made.
    const QScopedValueRollback turning(m_activity, Activity::Turning);
    m_grid.setTopRow(std::min(WholePart((position - 1) * m_wheelRate), m_grid.Rows() - 1));
}

void ListModule::turnedBy(int steps)
{
    m_grid.setTopRow(m_grid.TopRow() + WholePart(steps * m_wheelRate)); // kept within the list by the grid
}

// Print

QString ListModule::printSettings()
{
    return printFile(app().PrintEnv().PrintFolder(), m_moduleId);
}

bool ListModule::SelfPrint(bool bPrint, bool bSetup)
{
    return trappedWithoutDatabase(m_tables.printTag, [&] {
        const QString file = printSettings();
        const ShownGrid shown(m_grid);
        printSelf(app(), {file, m_tables.printTitle.toString(), printSubtitle(), shown}, bPrint, bSetup);
        return true;
    });
}

} // namespace ebtq
