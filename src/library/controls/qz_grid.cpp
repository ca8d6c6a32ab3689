#include "library/controls/qz_grid.h"

#include "library/controls/drawn_later.h"
#include "library/controls/pasted_cells.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

constexpr int numberColumn = 0;

} // namespace

qzGrid::qzGrid(const QString &name, int index)
    : VSFlexGrid(u"qzGrid"_s, name, index)
{}

void qzGrid::setEditable(bool editable)
{
    if (m_isEditable == editable)
        return;
    m_isEditable = editable;
    Q_EMIT stateChanged();
}

void qzGrid::Clear()
{
    setRows(FixedRows());
}

void qzGrid::makeRows(int count)
{
    Clear();
    setRows(FixedRows() + count);
    numberFrom(FixedRows());
}

bool qzGrid::isCellEditable(int row, int col) const
{
    return m_isEditable && row >= FixedRows() && row < Rows() && col >= FixedCols() && col < Cols() &&
           isColumnInSight(col);
}

void qzGrid::numberFrom(int row)
{
    for (; row < Rows(); ++row)
        setTextMatrix(row, numberColumn, QString::number(row - FixedRows() + 1));
}

void qzGrid::edit(int row, int col, const QString &text)
{
    if (!isCellEditable(row, col) || TextMatrix(row, col) == text)
        return;
    setTextMatrix(row, col, text);
    Q_EMIT CellChanged(row, col);
}

// Rows

bool qzGrid::appendRow()
{
    bool isAllowed = m_isEditable;
    if (isAllowed)
        Q_EMIT AddVsRow(Rows(), isAllowed);
    if (!isAllowed)
        return false;
    insertRow(Rows());
    numberFrom(Rows() - 1);
    return true;
}

bool qzGrid::addRow()
{
    if (!appendRow())
        return false;
    const std::vector<int> columns = editableColumns();
    setCurrent(Rows() - 1, columns.empty() ? Col() : columns.front());
    return true;
}

bool qzGrid::deleteRow(int row)
{
    bool isAllowed = m_isEditable && row >= FixedRows() && row < Rows();
    if (isAllowed)
        Q_EMIT DeleteVsRow(row, isAllowed);
    if (!isAllowed)
        return false;
    RemoveItem(row);
    numberFrom(row);
    return true;
}

// Cells

/// In the order of sight.
std::vector<int> qzGrid::editableColumns() const
{
    std::vector<int> columns;
    std::ranges::copy_if(columnOrder(), std::back_inserter(columns),
                         [this](int col) { return col >= FixedCols() && isColumnInSight(col); });
    return columns;
}

bool qzGrid::isRowEmpty(int row) const
{
    return std::ranges::all_of(editableColumns(), [&](int col) { return cell(row, col).empty(); });
}

bool qzGrid::goOn(bool forward)
{
    const std::vector<int> columns = editableColumns();
    if (!m_isEditable || columns.empty() || Row() < FixedRows())
        return false;
    const int count = static_cast<int>(columns.size());
    const int at = static_cast<int>(std::ranges::find(columns, Col()) - columns.begin());
    const int next = forward ? (at == count ? 0 : at + 1) : at - 1;
    if (next >= 0 && next < count) {
        setCurrent(Row(), columns[static_cast<size_t>(next)]);
        return true;
    }
    const int row = Row() + (forward ? 1 : -1);
    if (row < FixedRows() || row == Rows())
        return false;
    setCurrent(row, forward ? columns.front() : columns.back());
    return true;
}

bool qzGrid::goOnTyping()
{
    return goOn(true) || (!isRowEmpty(Row()) && addRow());
}

bool qzGrid::paste(const QString &block)
{
    std::vector<int> columns = editableColumns();
    if (!m_isEditable || columns.empty())
        return false;
    if (const auto current = std::ranges::find(columns, Col()); current != columns.end())
        columns.erase(columns.begin(), current);
    return drawnLater(*this, [&] {
        int row = std::max(Row(), FixedRows());
        return std::ranges::all_of(pastedCells(block),
                                   [&](const QStringList &cells) { return pasteRow(row++, columns, cells); });
    });
}

bool qzGrid::pasteRow(int row, const std::vector<int> &columns, const QStringList &cells)
{
    if (row == Rows() && !appendRow())
        return false;
    const auto count = std::min(columns.size(), static_cast<size_t>(cells.size()));
    for (size_t at = 0; at < count; ++at)
        edit(row, columns[at], cells[static_cast<qsizetype>(at)]);
    return true;
}

} // namespace ebtq
