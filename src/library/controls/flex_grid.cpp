#include "library/controls/flex_grid.h"

#include "library/controls/grid_search.h"

#include <algorithm>
#include <numeric>

namespace ebtq {

VSFlexGrid::VSFlexGrid(const QString &name, int index)
    : Control(QStringLiteral("VSFlexGrid"), name, index)
{}

template<class Signal, class... Arguments>
void VSFlexGrid::tell(bool &outdated, Signal signal, Arguments... arguments)
{
    if (m_redraw)
        Q_EMIT(this->*signal)(arguments...);
    else
        outdated = true;
}

/// The views hear of the end on whatever way. No destructor tells them: what they do then may fail.
template<class Change> void VSFlexGrid::resetRows(Change change)
{
    tell(m_rowsOutdated, &VSFlexGrid::rowsAboutToBeReset);
    try {
        change();
    } catch (...) {
        tell(m_rowsOutdated, &VSFlexGrid::rowsReset);
        throw;
    }
    tell(m_rowsOutdated, &VSFlexGrid::rowsReset);
}

// Shape

void VSFlexGrid::setRows(int rows)
{
    rows = std::max(rows, 0);
    resetRows([&] {
        m_fixedInUse = std::min(rows, m_fixedRows);
        m_rows.resize(rows - m_fixedInUse);
        if (m_rows.count() == 0)
            m_pictures.clear();
    });
    setTopRow(m_topRow);
    moveCurrent(m_row, m_col);
}

void VSFlexGrid::setCols(int cols)
{
    std::vector<GridColumn> columns = m_columns;
    columns.resize(static_cast<size_t>(std::max(cols, 0)), emptyGridColumn());
    replaceColumns(std::move(columns));
}

void VSFlexGrid::setFixedRows(int rows)
{
    resetRows([&] {
        m_fixedRows = std::max(rows, 0);
        m_fixedInUse = m_fixedRows;
    });
    setTopRow(m_topRow);
    moveCurrent(m_row, m_col);
}

void VSFlexGrid::setFormatString(const QString &format)
{
    m_formatString = format;
    replaceColumns(gridColumns(format));
}

void VSFlexGrid::replaceColumns(std::vector<GridColumn> columns)
{
    m_columns = std::move(columns);
    m_columnOrder.resize(m_columns.size());
    std::iota(m_columnOrder.begin(), m_columnOrder.end(), 0);
    tell(m_columnsOutdated, &VSFlexGrid::columnsChanged);
    moveCurrent(m_row, m_col < 0 ? m_fixedCols : m_col);
}

// Cells

bool VSFlexGrid::hasCell(int row, int col) const
{
    return row >= 0 && row < Rows() && col >= 0 && col < Cols();
}

QString VSFlexGrid::TextMatrix(int row, int col) const
{
    const std::string_view text = cell(row, col);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string_view VSFlexGrid::cell(int row, int col) const
{
    if (!hasCell(row, col))
        return {};
    if (isData(row))
        return m_rows.cell(position(row), col);
    return row == 0 ? std::string_view(column(col)->caption) : std::string_view();
}

void VSFlexGrid::setTextMatrix(int row, int col, const QString &text)
{
    if (!hasCell(row, col))
        return;
    if (isData(row))
        m_rows.setCell(position(row), col, text.toStdString());
    else if (row == 0)
        column(col)->caption = text.toStdString();
    tell(m_rowsOutdated, &VSFlexGrid::rowChanged, row);
}

void VSFlexGrid::LoadArray(RowBlock block, int firstCol)
{
    resetRows([&] {
        m_rows.load(std::move(block), firstCol);
        m_pictures.clear();
        m_fixedInUse = m_fixedRows;
    });
    setTopRow(m_topRow);
    moveCurrent(isData(m_row) ? m_row : m_fixedInUse, m_col);
}

quint32 VSFlexGrid::pictureRow(int row) const
{
    return isData(row) ? m_rows.identity(position(row)) : static_cast<quint32>(row);
}

QString VSFlexGrid::CellPicture(int row, int col) const
{
    if (!hasCell(row, col))
        return {};
    return (isData(row) ? m_pictures : m_fixedPictures).icon(pictureRow(row), col);
}

void VSFlexGrid::setCellPicture(int row, int col, const QString &icon, int alignment)
{
    if (!hasCell(row, col))
        return;
    (isData(row) ? m_pictures : m_fixedPictures).set(pictureRow(row), col, icon, alignment);
    tell(m_rowsOutdated, &VSFlexGrid::rowChanged, row);
}

int VSFlexGrid::CellPictureAlignment(int row, int col) const
{
    if (!hasCell(row, col))
        return AlignCentre;
    return (isData(row) ? m_pictures : m_fixedPictures).alignment(pictureRow(row), col, AlignCentre);
}

// Rows

void VSFlexGrid::insertRow(int before)
{
    const int row = std::clamp(before, m_fixedInUse, Rows());
    const int sight = m_rows.sightBefore(position(row));
    tell(m_rowsOutdated, &VSFlexGrid::rowAboutToBeInserted, sight);
    m_rows.insert(position(row));
    if (isData(m_row) && m_row >= row)
        ++m_row;
    tell(m_rowsOutdated, &VSFlexGrid::rowInserted, sight);
    tell(m_currentOutdated, &VSFlexGrid::currentChanged);
}

void VSFlexGrid::RemoveItem(int row)
{
    if (!isData(row))
        return;
    const bool seen = !m_rows.isHidden(position(row));
    const int sight = m_rows.sightBefore(position(row));
    if (seen)
        tell(m_rowsOutdated, &VSFlexGrid::rowAboutToBeRemoved, sight);
    for (int col = 0; col < Cols(); ++col)
        m_pictures.set(pictureRow(row), col, {}, AlignCentre);
    m_rows.remove(position(row));
    if (m_row > row)
        --m_row;
    if (seen)
        tell(m_rowsOutdated, &VSFlexGrid::rowRemoved, sight);
    tell(m_currentOutdated, &VSFlexGrid::currentChanged);
    setTopRow(m_topRow);
    moveCurrent(m_row, m_col);
}

bool VSFlexGrid::RowHidden(int row) const
{
    return isData(row) && m_rows.isHidden(position(row));
}

void VSFlexGrid::setRowHidden(int row, bool hidden)
{
    if (!isData(row) || m_rows.isHidden(position(row)) == hidden)
        return;
    resetRows([&] { m_rows.setHidden(position(row), hidden); });
}

void VSFlexGrid::showAllRows()
{
    if (m_rows.countInSight() == m_rows.count())
        return;
    resetRows([this] { m_rows.showAll(); });
}

void VSFlexGrid::hideRowsWithout(const QString &text, const QList<int> &columns,
                                 Qt::CaseSensitivity sensitivity)
{
    resetRows([&] {
        m_rows.hideAll();
        GridSearch(m_rows, text, m_col, columns, sensitivity).run(0, [this](int found) {
            m_rows.setHidden(found, false);
            return true;
        });
    });
}

int VSFlexGrid::findRow(const QString &text, const QList<int> &columns, int fromRow,
                        Qt::CaseSensitivity sensitivity) const
{
    int row = -1;
    GridSearch(m_rows, text, m_col, columns, sensitivity).run(std::max(position(fromRow), 0), [&](int found) {
        row = found + m_fixedInUse;
        return false;
    });
    return row;
}

// Columns

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
    changeColumn(col, &GridColumn::width, std::max(width, 0));
}

int VSFlexGrid::ColAlignment(int col) const
{
    return column(col) ? column(col)->alignment : AlignGeneral;
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

// Look, current cell and scrolling

void VSFlexGrid::setBackColorAlternate(int color)
{
    m_backColorAlternate = color;
    Q_EMIT stateChanged();
}

void VSFlexGrid::setCurrent(int row, int col)
{
    // A cell that stays may have been scrolled out of sight; it is to be seen again.
    if (!moveCurrent(std::max(row, 0), std::max(col, 0)))
        tell(m_currentOutdated, &VSFlexGrid::currentChanged);
}

bool VSFlexGrid::moveCurrent(int row, int col)
{
    row = std::min(std::max(row, 0), Rows() - 1);
    col = std::min(col, Cols() - 1);
    if (row == m_row && col == m_col)
        return false;
    const int oldRow = std::exchange(m_row, row);
    const int oldCol = std::exchange(m_col, col);
    tell(m_currentOutdated, &VSFlexGrid::currentChanged);
    Q_EMIT AfterRowColChange(oldRow, oldCol, m_row, m_col);
    return true;
}

void VSFlexGrid::setTopRow(int row)
{
    const int top = std::max(std::min(row, Rows() - 1), m_fixedRows);
    if (top == m_topRow)
        return;
    m_topRow = top;
    tell(m_topRowOutdated, &VSFlexGrid::topRowChanged);
}

void VSFlexGrid::setRedraw(bool on)
{
    if (m_redraw == on)
        return;
    m_redraw = on;
    if (!on)
        return;
    if (std::exchange(m_columnsOutdated, false))
        Q_EMIT columnsChanged();
    if (std::exchange(m_rowsOutdated, false)) {
        Q_EMIT rowsAboutToBeReset();
        Q_EMIT rowsReset();
    }
    if (std::exchange(m_topRowOutdated, false))
        Q_EMIT topRowChanged();
    if (std::exchange(m_currentOutdated, false))
        Q_EMIT currentChanged();
}

// Rows in sight

int VSFlexGrid::rowInSight(int position) const
{
    if (position < 0 || position >= visibleCount())
        return -1;
    return m_fixedInUse + m_rows.positionInSight(position);
}

int VSFlexGrid::positionInSight(int row) const
{
    return isData(row) && !RowHidden(row) ? m_rows.sightBefore(position(row)) : -1;
}

int VSFlexGrid::topInSight() const
{
    const int before = m_rows.sightBefore(std::clamp(position(m_topRow), 0, m_rows.count()));
    return std::min(before, visibleCount() - 1);
}

size_t VSFlexGrid::byteSize() const
{
    return m_rows.byteSize() + m_pictures.byteSize();
}

void VSFlexGrid::reportMouseDown(short button, short shift, float x, float y)
{
    Q_EMIT MouseDown(button, shift, x, y);
}

} // namespace ebtq
