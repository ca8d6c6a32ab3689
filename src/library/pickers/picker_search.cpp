#include "library/pickers/picker_search.h"

#include "contracts/conversions.h"
#include "library/controls/drawn_later.h"
#include "library/controls/grid_helper.h"
#include "library/frame/desktop.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

PickerSearch::PickerSearch(ControlCollection &controls, VSFlexGrid &grid)
    : m_grid(grid)
    , m_text(controls.add<TextBox>(u"Txt"_s, 0))
    , m_columnList(controls.add<TextBox>(u"Txt"_s, 1))
    , m_filters(controls.add<CheckBox>(u"Check"_s))
    , m_strictMatchBox(controls.add<CheckBox>(u"ChkFind"_s))
{
    m_text.setCaption(u"查询(&B):"_s);
    m_columnList.setText(u"1;2;4"_s);
    m_columnList.setVisible(false);
    m_filters.setCaption(u"过滤"_s);
    m_strictMatchBox.setCaption(u"全字匹配"_s);
    connect(&m_text, &TextBox::Change, this, &PickerSearch::apply);
    connect(&m_filters, &CheckBox::Click, this, &PickerSearch::changeKind);
    connect(&m_strictMatchBox, &CheckBox::Click, this, &PickerSearch::apply);
}

void PickerSearch::readColumns()
{
    m_columns.clear();
    const QStringList numbers = Trim(m_columnList.Text()).split(u';');
    for (const QString &number : numbers)
        m_columns.append(WholePart(Val(number)));
}

void PickerSearch::askForColumns(Desktop &desktop)
{
    const auto answer =
        desktop.inputBox(u"请输入欲查询的列(格式: 列1;列2;...列n):"_s, u"查找"_s, m_columnList.Text());
    if (!answer || answer->isEmpty() || *answer == m_columnList.Text())
        return;
    m_columnList.setText(*answer);
    readColumns();
}

void PickerSearch::rowsLoaded()
{
    if (m_filters.Value() == 1)
        filter();
}

void PickerSearch::changeKind()
{
    const bool filters = m_filters.Value() == 1;
    m_strictMatchBox.setCaption(filters ? u"左起字符匹配"_s : u"全字匹配"_s);
    if (!filters)
        m_grid.showAllRows();
    apply();
}

void PickerSearch::apply()
{
    if (m_filters.Value() == 1)
        filter();
    else
        find();
}

void PickerSearch::find()
{
    const QString text = m_text.Text();
    const auto match =
        m_strictMatchBox.Value() == 1 ? GridHelper::Match::Equals : GridHelper::Match::Contains;
    // A single column means the current one.
    const QList<int> columns = m_columns.size() == 1 ? QList<int>{m_grid.Col()} : m_columns;
    for (const int column : columns) {
        const int row =
            text.isEmpty() ? -1 : GridHelper().find(m_grid, column, text, match, m_grid.FixedRows());
        if (row >= 0)
            return m_grid.setRow(row);
    }
}

void PickerSearch::filter()
{
    drawnLater(m_grid, [this] {
        m_grid.showAllRows();
        const QString text = m_text.Text().toUpper();
        for (int row = m_grid.FixedRows(); !text.isEmpty() && row < m_grid.Rows(); ++row)
            m_grid.setRowHidden(row, !matches(row, text));
        // Without a visible row none may be current: Enter would choose a hidden one.
        if (!GridHelper().select(m_grid, m_grid.rowInSight(0)))
            m_grid.setRow(0);
        return true;
    });
}

bool PickerSearch::matches(int row, const QString &upperText) const
{
    return std::ranges::any_of(m_columns, [&](int column) {
        const QString cell = m_grid.TextMatrix(row, column).toUpper();
        return m_strictMatchBox.Value() == 1 ? cell.startsWith(upperText) : cell.contains(upperText);
    });
}

} // namespace ebtq
