#include "library/controls/flex_grid.h"

#include "contracts/conversions.h"

#include <algorithm>
#include <numeric>

namespace ebtq {

namespace {

/// Wider or higher than any screen; what a damaged layout says beyond it is not meant.
constexpr int widestColumn = 10000;
constexpr int lowestRow = 8;
constexpr int highestRow = 1000;

std::vector<int> naturalOrder(int columns)
{
    std::vector<int> order(static_cast<size_t>(columns));
    std::iota(order.begin(), order.end(), 0);
    return order;
}

} // namespace

void VSFlexGrid::setCols(int cols)
{
    std::vector<GridColumn> columns = m_columns;
    columns.resize(static_cast<size_t>(std::max(cols, 0)), emptyGridColumn());
    replaceColumns(std::move(columns));
}

void VSFlexGrid::setFormatString(const QString &format)
{
    m_formatString = format;
    replaceColumns(gridColumns(format));
}

void VSFlexGrid::replaceColumns(std::vector<GridColumn> columns)
{
    m_columns = std::move(columns);
    m_columnOrder = naturalOrder(Cols());
    tell(m_columnsOutdated, &VSFlexGrid::columnsChanged);
    moveCurrent(m_row, m_col < 0 ? m_fixedCols : m_col);
}

GridColumn *VSFlexGrid::column(int col)
{
    return col >= 0 && col < Cols() ? &m_columns[static_cast<size_t>(col)] : nullptr;
}

const GridColumn *VSFlexGrid::column(int col) const
{
    return col >= 0 && col < Cols() ? &m_columns[static_cast<size_t>(col)] : nullptr;
}

template<class T> void VSFlexGrid::changeColumn(int col, T GridColumn::*member, T value)
{
    GridColumn *changed = column(col);
    if (!changed || changed->*member == value)
        return;
    changed->*member = value;
    tell(m_columnsOutdated, &VSFlexGrid::columnsChanged);
}

bool VSFlexGrid::ColHidden(int col) const
{
    return column(col) && column(col)->hidden;
}

void VSFlexGrid::setColHidden(int col, bool hidden)
{
    changeColumn(col, &GridColumn::hidden, hidden);
}

int VSFlexGrid::ColWidth(int col) const
{
    return column(col) ? column(col)->width : 0;
}

void VSFlexGrid::setColWidth(int col, int width)
{
    width = std::clamp(width, 0, widestColumn);
    if (GridColumn *changed = column(col); changed && width > 0)
        changed->shownWidth = width;
    changeColumn(col, &GridColumn::width, width);
}

int VSFlexGrid::widthWhenShown(int col) const
{
    return column(col) ? column(col)->shownWidth : 0;
}

bool VSFlexGrid::isWidthGiven(int col) const
{
    return column(col) && column(col)->width == column(col)->givenWidth;
}

bool VSFlexGrid::MergeCol(int col) const
{
    return column(col) && column(col)->isMerged;
}

void VSFlexGrid::setMergeCol(int col, bool merged)
{
    changeColumn(col, &GridColumn::isMerged, merged);
}

QString VSFlexGrid::ColFormat(int col) const
{
    return column(col) ? column(col)->format : QString();
}

void VSFlexGrid::setColFormat(int col, const QString &format)
{
    changeColumn(col, &GridColumn::format, format);
}

int VSFlexGrid::ColDataType(int col) const
{
    return column(col) ? column(col)->dataType : 0;
}

void VSFlexGrid::setColDataType(int col, int type)
{
    changeColumn(col, &GridColumn::dataType, type);
}

void VSFlexGrid::setColumnOrder(const std::vector<int> &order)
{
    if (order == m_columnOrder || !std::ranges::is_permutation(order, m_columnOrder))
        return;
    m_columnOrder = order;
    tell(m_columnsOutdated, &VSFlexGrid::columnsChanged);
}

void VSFlexGrid::resetColumns()
{
    for (int col = 0; col < Cols(); ++col)
        setColWidth(col, column(col)->givenWidth);
    setColumnOrder(naturalOrder(Cols()));
}

QString VSFlexGrid::displayText(int row, int col) const
{
    const QString text = TextMatrix(row, col);
    const GridColumn *shown = column(col);
    return !shown || shown->format.isEmpty() || !isData(row) ? text : Format(text, shown->format);
}

int VSFlexGrid::ColAlignment(int col) const
{
    return column(col) ? column(col)->alignment : AlignGeneral;
}

int VSFlexGrid::shownAlignment(int col) const
{
    const int alignment = ColAlignment(col);
    if (alignment == AlignLeft || alignment == AlignCentre || alignment == AlignRight)
        return alignment;
    const ColumnType held = columnType(col);
    return held == ColumnType::Integer || held == ColumnType::Number ? AlignRight : AlignLeft;
}

void VSFlexGrid::setColAlignment(int col, int alignment)
{
    changeColumn(col, &GridColumn::alignment, alignment);
}

int VSFlexGrid::FixedAlignment(int col) const
{
    return column(col) ? column(col)->fixedAlignment : AlignGeneral;
}

void VSFlexGrid::setFixedAlignment(int col, int alignment)
{
    changeColumn(col, &GridColumn::fixedAlignment, alignment);
}

ColumnType VSFlexGrid::columnType(int col) const
{
    const int blockCol = col - m_rows.firstColumn();
    const auto &columns = m_rows.block().columns();
    const bool loaded = blockCol >= 0 && blockCol < m_rows.block().columnCount();
    return loaded ? columns[static_cast<size_t>(blockCol)].type : ColumnType::Text;
}

// Colours

GridCellLook VSFlexGrid::cellLook(int row, int col) const
{
    if (!hasCell(row, col) || !isData(row))
        return {};
    GridCellLook look = m_subtotals.look(m_rows, position(row), col);
    const GridColors::Colors own = m_colors.of(pictureRow(row), col);
    if (own.back != 0)
        look.backColor = own.back;
    if (own.fore != 0)
        look.foreColor = own.fore;
    return look;
}

int VSFlexGrid::commonColor(int row, int fromCol, int toCol, int GridCellLook::*part) const
{
    const int color = cellLook(row, fromCol).*part;
    for (int col = fromCol; color != 0 && col <= toCol; ++col) {
        if (cellLook(row, col).*part != color)
            return 0;
    }
    return color;
}

int VSFlexGrid::CellForeColor(int row, int fromCol, int toCol) const
{
    return commonColor(row, fromCol, toCol, &GridCellLook::foreColor);
}

int VSFlexGrid::CellBackColor(int row, int fromCol, int toCol) const
{
    return commonColor(row, fromCol, toCol, &GridCellLook::backColor);
}

void VSFlexGrid::setCellForeColor(int row, int fromCol, int toCol, int color)
{
    for (int col = fromCol; isData(row) && col <= std::min(toCol, Cols() - 1); ++col)
        m_colors.setFore(pictureRow(row), col, color);
    tell(m_rowsOutdated, &VSFlexGrid::rowChanged, row);
}

void VSFlexGrid::setCellBackColor(int row, int fromCol, int toCol, int color)
{
    for (int col = fromCol; isData(row) && col <= std::min(toCol, Cols() - 1); ++col)
        m_colors.setBack(pictureRow(row), col, color);
    tell(m_rowsOutdated, &VSFlexGrid::rowChanged, row);
}

// Look

template<class T> void VSFlexGrid::changeLook(T &member, T value)
{
    if (member == value)
        return;
    member = value;
    Q_EMIT stateChanged();
}

void VSFlexGrid::setBackColorAlternate(int color)
{
    changeLook(m_backColorAlternate, color);
}

void VSFlexGrid::setSelectionColor(int color)
{
    changeLook(m_selectionColor, color);
}

void VSFlexGrid::setFrozenCols(int cols)
{
    changeLook(m_frozenCols, std::clamp(cols, 0, std::max(Cols() - m_fixedCols, 0)));
}

void VSFlexGrid::setGridColor(int color)
{
    changeLook(m_gridColor, color);
}

void VSFlexGrid::setWordWrap(bool wraps)
{
    changeLook(m_wordWrap, wraps);
}

void VSFlexGrid::setRowHeight(int row, int height)
{
    changeLook(row < m_fixedRows ? m_fixedRowHeight : m_rowHeight, std::clamp(height, lowestRow, highestRow));
}

} // namespace ebtq
