#include "library/pickers/picker.h"

#include "contracts/conversions.h"
#include "contracts/null_conv.h"
#include "library/controls/grid_helper.h"
#include "library/frame/statements.h"
#include "library/frame/wait_cursor.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int firstColumn = 1;

void align(VSFlexGrid &grid, std::span<const int> columns, int alignment)
{
    for (const int column : columns)
        grid.setColAlignment(column, alignment);
}

} // namespace

SqlText whereAnyEquals(const QStringList &columns, const QString &typedText)
{
    SqlText where;
    for (const QString &column : columns) {
        where += where.isEmpty() ? QStringView(u" Where (") : QStringView(u" OR ");
        where += column;
        where += QStringView(u"=");
        where += quoted(typedText);
    }
    where += QStringView(u")");
    return where;
}

Picker::Picker(const QString &name, Desktop &desktop, const PickerGrid &grid)
    : Module(name, desktop)
    , m_shape(grid)
    , m_grid(controls().add<VSFlexGrid>(u"VS"_s))
    , m_search(controls(), m_grid)
    , m_failure(controls().add<Label>(u"lblFailure"_s))
{
    connect(&m_search.text(), &TextBox::ReturnPressed, this, [this] {
        if (isData(m_grid.Row())) // a search without a hit must not empty the field
            confirm();
    });
    connect(&m_grid, &VSFlexGrid::DblClick, this, [this] {
        if (choosesByRow())
            confirm();
    });
    connect(&addButton(0, u"确认(&D)"_s), &Button::Click, this, &Picker::confirm);
    connect(&addButton(1, u"取消(&C)"_s), &Button::Click, this, &Picker::DoCancel);
    connect(&addButton(2, u"刷新(&R)"_s), &Button::Click, this, &Picker::reload);
}

Button &Picker::addButton(int number, const QString &caption)
{
    auto &button = controls().add<Button>(u"btn"_s, number);
    button.setCaption(caption);
    return button;
}

Button &Picker::btn(int number)
{
    auto *button = qobject_cast<Button *>(controls().find(u"btn"_s, number));
    if (!button)
        throw Failure(u"没有编号为%1的按钮！"_s.arg(number));
    return *button;
}

TextBox &Picker::Txt(int number)
{
    if (number != 0 && number != 1)
        throw Failure(u"没有编号为%1的文本框！"_s.arg(number));
    return number == 0 ? m_search.text() : m_search.columnList();
}

// Init and Clear

bool Picker::IPickerUI_Init(HostApp &app, int /*unused*/, const QString & /*name*/)
{
    setApp(&app);
    const QString folder = app.Session().AppPath();
    m_layoutFolder = folder + (folder.endsWith(u'/') ? u"selfbb"_s : u"/selfbb"_s);
    m_row = emptyRow();
    setUpGrid();
    m_search.text().setToolTipText(u"提示：按回车键选择完毕！"_s);
    m_search.readColumns();
    return true;
}

void Picker::setUpGrid()
{
    constexpr int fixedColumns = 1;
    constexpr int frozenColumns = 3;
    GridHelper().style(m_grid, fixedColumns, m_shape.format.toString());
    m_grid.setFrozenCols(frozenColumns);
    for (int column = 0; column < m_grid.Cols(); ++column)
        m_grid.setColAlignment(column, VSFlexGrid::AlignLeft);
    align(m_grid, m_shape.right, VSFlexGrid::AlignRight);
    align(m_grid, m_shape.centred, VSFlexGrid::AlignCentre);
    for (const int column : m_shape.hidden)
        m_grid.setColHidden(column, true);
    m_grid.setToolTipText(u"提示：双击或按回车键选择完毕！"_s);
}

void Picker::IPickerUI_Clear()
{
    m_parameters.Clear();
    m_row.reset();
    setApp(nullptr);
}

void Picker::IPickerUI_Parameters(const ParameterList &list)
{
    m_parameters = list;
    m_search.text().setText({});
    beginUse();
}

// Load

bool Picker::IPickerUI_Refresh()
{
    return released([this] { return prepareList() && load(); });
}

void Picker::reload()
{
    trapped(u"-->RefreshVS::", [this] { return load(); });
}

bool Picker::load()
{
    m_sortedColumn = -1;
    m_grid.setRows(m_grid.FixedRows());
    const WaitCursor wait(desktop());
    const auto rows = open(listStatement());
    if (!isEmpty(*rows))
        m_grid.LoadArray(rows->GetRows(), firstColumn);
    m_grid.setCol(std::max(m_grid.Col(), firstColumn));
    m_search.rowsLoaded();
    m_focus.SetFocus(m_grid);
    return m_failure.Caption().isEmpty();
}

std::unique_ptr<Recordset> Picker::open(const SqlText &sql)
{
    auto rows = app().Db().CreateQuery(sql, 1)->Open();
    m_failure.setCaption(app().Db().LastError().Description);
    return rows;
}

void Picker::raiseError(const QString &message, int /*level*/, const QString & /*title*/)
{
    m_failure.setCaption(message);
}

void Picker::sortBy(int column)
{
    m_isDescending = std::exchange(m_sortedColumn, column) == column && !m_isDescending;
    const int current = m_grid.Col();
    m_grid.setCol(column);
    m_grid.setSort(
        static_cast<int>(m_isDescending ? GridSort::GenericDescending : GridSort::GenericAscending));
    m_grid.setCol(current); // a search of one column goes by it
}

// Choice

void Picker::confirm()
{
    trappedWithoutDatabase(u"-->DoSelect::", [this] {
        takeRow();
        takeTicked();
        Q_EMIT DoSelect();
        return true;
    });
}

void Picker::takeRow()
{
    setChoice(QString(), QString());
    m_row.reset();
    const int row = m_grid.Row();
    if (!isData(row))
        return;
    const QStringList names = columns();
    const RowReader read = [&](const QString &column) {
        return m_grid.TextMatrix(row, firstColumn + static_cast<int>(names.indexOf(column)));
    };
    m_row = readRow(read);
    setChoice(NumberText(Val(read(keyColumn()))), read(textColumn()).toString());
}

void Picker::setChoice(const QVariant &value, const QString &text)
{
    m_value = value;
    m_text = text;
}

void Picker::askForColumns()
{
    m_search.askForColumns(desktop());
}

// Look-up of a typed text

bool Picker::IPickerUI_Validate(const QString & /*unused*/, const QString &valueField,
                                const QString &textField, const QString &typedText, QVariant &value,
                                QString &text)
{
    const bool found = released([&] { return lookUp(valueField, textField, typedText); });
    value = NullConv::ToText(m_value);
    text = m_text;
    return found;
}

bool Picker::lookUp(const QString &valueField, const QString &textField, const QString &typedText)
{
    setChoice(QString(), QString());
    m_row = emptyRow();
    const auto rows = open(checkStatement(typedText));
    if (isEmpty(*rows))
        return false;
    const RowReader read = [&rows](const QString &column) { return rows->Fields(column).Value; };
    m_row = readRow(read);
    setChoice(NullConv::ToText(read(valueField.isEmpty() ? keyColumn() : valueField)),
              NullConv::ToText(read(textField.isEmpty() ? textColumn() : textField)));
    rows->Close();
    return true;
}

} // namespace ebtq
