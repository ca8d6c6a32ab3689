#include "library/lists/record_detail.h"

#include "contracts/conversions.h"
#include "database/values/number_text.h"
#include "library/controls/drawn_later.h"
#include "library/frame/statements.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int untilIdle = 500;       // milliseconds
constexpr int longestCounting = 200; // the same

} // namespace

QString DetailRecord::text(QStringView column) const
{
    return cellText(m_row.cell(0, at(column)));
}

double DetailRecord::number(QStringView column) const
{
    return leadingNumber(m_row.cell(0, at(column)));
}

int DetailRecord::at(QStringView column) const
{
    const int number = m_row.columnNamed(column);
    if (number < 0)
        throw Failure(u"列 %1 不存在"_s.arg(column));
    return number;
}

RecordDetail::RecordDetail(Module &module, const VSFlexGrid &list, const DetailTables &tables)
    : ModulePart(module)
    , m_list(list)
    , m_tables(tables)
    , m_tabs(controls().add<qzVSTabCtl>(u"qzVSTabCtl1"_s))
{
    makeControls();
    m_idle.setSingleShot(true);
    m_idle.setInterval(untilIdle);
    connect(&m_idle, &QTimer::timeout, this, &RecordDetail::count);
    connect(&m_tabs, &qzVSTabCtl::TabLeft, this, [this](int tab) { setPanelVisible(tab, false); });
    connect(&m_tabs, &qzVSTabCtl::TabEntered, this, [this](int tab) {
        setPanelVisible(tab, true);
        // Whatever row is current: without a record nothing is found and nothing changes.
        if (isInited())
            ShowDetail(m_list.TextMatrix(m_list.Row(), m_tables.keyColumn));
    });
}

void RecordDetail::makeControls()
{
    std::vector<qzVSTabCtl::Tab> tabs;
    for (const DetailTab &tab : m_tables.tabs) {
        const int panel = static_cast<int>(tabs.size());
        controls().add<qzPanel>(u"pnlTab"_s, panel).setVisible(panel + 1 == m_tables.firstTab);
        tabs.push_back({tab.caption.toString(), tab.key.toString()});
    }
    m_tabs.setTabs(std::move(tabs), m_tables.firstTab);
    for (const DetailField &field : m_tables.fields) {
        m_fields.push_back(&controls().add<qzTxt_S>(m_tables.fieldName.toString(), field.number));
        m_fields.back()->setCaption(field.caption.toString());
        m_fields.back()->setToolTipText(field.meaning.toString());
        m_fields.back()->setKept(false);
    }
    for (const DetailBox &box : m_tables.boxes) {
        m_boxes.push_back(
            &controls().add<TextBox>(m_tables.boxName.toString(), box.number, TextBox::Lines::Many));
        m_boxes.back()->setCaption(box.caption.toString());
        m_boxes.back()->setKept(false);
    }
}

VSFlexGrid &RecordDetail::addGrid(const QString &name)
{
    return *m_grids.emplace_back(&controls().add<VSFlexGrid>(name));
}

template<class T> T &RecordDetail::control(QStringView name, int number)
{
    auto *found = qobject_cast<T *>(controls().find(name.toString(), number));
    if (!found)
        throw Failure(u"没有编号为 %1 的控件 %2！"_s.arg(number).arg(name));
    return *found;
}

qzPanel &RecordDetail::pnlTab(int number)
{
    return control<qzPanel>(u"pnlTab", number);
}

qzTxt_S &RecordDetail::field(int number)
{
    return control<qzTxt_S>(m_tables.fieldName, number);
}

TextBox &RecordDetail::box(int number)
{
    return control<TextBox>(m_tables.boxName, number);
}

void RecordDetail::setPanelVisible(int tab, bool visible)
{
    pnlTab(tab - 1).setVisible(visible);
}

// Load

void RecordDetail::ShowDetail(const QString &id)
{
    const int tab = m_tabs.ActiveTab();
    const bool done = load(tab, id);
    Q_EMIT TabShown(tab, done && id == currentRecord());
    countLater();
}

// Counts

/// Those of the record before are wrong at once. Without an event loop nobody is ever idle.
void RecordDetail::countLater()
{
    for (const int tab : m_tables.countedTabs)
        showCount(tab, 0);
    if (!m_tables.countedTabs.empty() && !m_isCountingSlow && QAbstractEventDispatcher::instance())
        m_idle.start();
}

void RecordDetail::showCount(int tab, int count)
{
    const QString caption = m_tables.tabs[static_cast<size_t>(tab) - 1].caption.toString();
    m_tabs.setTabCaption(tab, count > 0 ? u"%1 (%2)"_s.arg(caption).arg(count) : caption);
}

/// An offer, never in the way: what fails is told by the tab itself when it is entered, and where counting
/// takes long it is given up. Without a Release, since it may come while something else is under way.
void RecordDetail::count()
{
    const QString id = isInited() ? currentRecord() : QString();
    if (id.isEmpty())
        return;
    QElapsedTimer elapsed;
    elapsed.start();
    try {
        const auto rows = openRows(app().Db(), countStatement(id));
        if (isEmpty(*rows))
            return;
        const RowBlock counts = rows->GetRows();
        for (size_t at = 0; at < m_tables.countedTabs.size(); ++at)
            showCount(m_tables.countedTabs[at],
                      WholePart(leadingNumber(counts.cell(0, static_cast<int>(at)))));
    } catch (const std::exception &) {
        return;
    }
    m_isCountingSlow = elapsed.elapsed() > longestCounting;
}

void RecordDetail::showCurrent()
{
    const QString id = currentRecord();
    if (id.isEmpty())
        empty();
    ShowDetail(id);
}

QString RecordDetail::currentRecord() const
{
    const int row = m_list.Row();
    const bool isRecord = row >= m_list.FixedRows() && row < m_list.Rows();
    return isRecord ? m_list.TextMatrix(row, m_tables.keyColumn) : QString();
}

void RecordDetail::empty()
{
    emptyFields();
    for (VSFlexGrid *grid : m_grids)
        grid->setRows(grid->FixedRows());
}

void RecordDetail::emptyFields()
{
    for (qzTxt_S *field : m_fields) {
        field->setValue({});
        field->setText({});
    }
    for (TextBox *box : m_boxes)
        box->setText({});
}

bool RecordDetail::loadFields(const SqlText &sql)
{
    const auto rows = openRows(app().Db(), sql);
    if (isEmpty(*rows))
        return false;
    fill(DetailRecord(rows->GetRows()));
    return true;
}

void RecordDetail::fill(const DetailRecord &record)
{
    auto control = m_fields.cbegin();
    for (const DetailField &field : m_tables.fields) {
        qzTxt_S &shown = **control++;
        if (!field.valueColumn.isEmpty())
            shown.setValue(record.value(field.valueColumn));
        if (const auto text = field.text ? field.text(record, field.column) : record.text(field.column))
            shown.setText(*text);
    }
    auto box = m_boxes.cbegin();
    for (const DetailBox &each : m_tables.boxes)
        (*box++)->setText(record.text(each.column));
}

bool RecordDetail::loadGrid(VSFlexGrid &grid, const SqlText &sql, KeptLayout *layout)
{
    return drawnLater(grid, [&] {
        grid.setRows(grid.FixedRows());
        const auto rows = openRows(app().Db(), sql);
        if (isEmpty(*rows))
            return true;
        grid.LoadArray(rows->GetRows(), grid.FixedCols());
        if (layout)
            layout->restore(layoutFile(), grid, app());
        return true;
    });
}

} // namespace ebtq
