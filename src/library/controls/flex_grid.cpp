#include "library/controls/flex_grid.h"

#include "library/controls/grid_search.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ebtq {

VSFlexGrid::VSFlexGrid(const QString &name, int index)
    : VSFlexGrid(u"VSFlexGrid"_s, name, index)
{}

VSFlexGrid::VSFlexGrid(const QString &typeName, const QString &name, int index)
    : Control(typeName, name, index)
{}

// Shape

void VSFlexGrid::setRows(int rows)
{
    rows = std::max(rows, 0);
    resetRows([&] {
        m_fixedInUse = std::min(rows, m_fixedRows);
        m_rows.resize(rows - m_fixedInUse);
        if (m_rows.count() == 0)
            forgetRows();
    });
    setTopRow(m_topRow);
    moveCurrent(m_row, m_col);
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

// Cells

bool VSFlexGrid::hasCell(int row, int col) const
{
    return row >= 0 && row < Rows() && col >= 0 && col < Cols();
}

QString VSFlexGrid::TextMatrix(int row, int col) const
{
    return cellText(cell(row, col));
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
        forgetRows();
        m_fixedInUse = m_fixedRows;
    });
    setTopRow(m_topRow);
    moveCurrent(isData(m_row) ? m_row : m_fixedInUse, m_col);
}

/// What was kept for rows that were removed.
void VSFlexGrid::forgetRows()
{
    m_pictures.clear();
    m_colors.clear();
    m_subtotals.forget();
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
    for (int col = 0; col < Cols(); ++col) {
        m_pictures.set(pictureRow(row), col, {}, AlignCentre);
        m_colors.remove(pictureRow(row), col);
    }
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

template<class Change> void VSFlexGrid::rearrangeRows(Change change)
{
    const int currentData = dataRowNear(m_row);
    const int topData = dataRowNear(m_topRow);
    const auto identityAt = [this](int row) { return m_rows.identity(position(row)); };
    const auto current = currentData < 0 ? 0 : identityAt(currentData);
    const auto top = topData < 0 ? 0 : identityAt(topData);
    resetRows(change);
    int newRow = std::min(m_row, Rows() - 1);
    int newTop = m_topRow;
    for (int row = m_fixedInUse; row < Rows(); ++row) {
        if (currentData >= 0 && identityAt(row) == current)
            newRow = row;
        if (topData >= 0 && identityAt(row) == top)
            newTop = row;
    }
    // At the top stays at the top, also when a sum came in above the first row.
    if (m_topRow > m_fixedRows)
        setTopRow(newTop);
    m_row = newRow;
    tell(m_currentOutdated, &VSFlexGrid::currentChanged);
}

/// The row itself, or the next one above a subtotal that has data; -1 when there is none.
int VSFlexGrid::dataRowNear(int row) const
{
    while (isData(row) && isSubtotal(row))
        --row;
    return isData(row) ? row : -1;
}

void VSFlexGrid::setSort(int sort)
{
    if (sort < static_cast<int>(GridSort::GenericAscending) ||
        sort > static_cast<int>(GridSort::StringDescending))
        return;
    rearrangeRows([&] {
        m_subtotals.clear(m_rows);
        sortRows(m_rows, m_col, columnType(m_col), static_cast<GridSort>(sort));
    });
}

void VSFlexGrid::addSubtotals(std::span<const Subtotal> wanted)
{
    rearrangeRows([&] { m_subtotals.add(m_rows, wanted, m_subtotalPosition, m_fixedCols); });
}

void VSFlexGrid::clearSubtotals()
{
    if (m_subtotals.isEmpty())
        return;
    rearrangeRows([this] { m_subtotals.clear(m_rows); });
}

bool VSFlexGrid::isSumLabel(int row, int col) const
{
    return isSubtotal(row) && shownAlignment(col) != AlignRight && !displayText(row, col).isEmpty();
}

bool VSFlexGrid::isSubtotal(int row) const
{
    return isData(row) && m_rows.isSubtotal(position(row));
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

std::vector<int> VSFlexGrid::rowsHolding(const QString &text, const QList<int> &columns,
                                         Searched searched) const
{
    std::vector<int> rows;
    if (columns.isEmpty())
        return rows;
    GridSearch(m_rows, text, columns.first(), columns.mid(1), Qt::CaseInsensitive).run(0, [&](int found) {
        if (searched == AllRows || !m_rows.isHidden(found))
            rows.push_back(found + m_fixedInUse);
        return true;
    });
    return rows;
}

void VSFlexGrid::showOnly(std::span<const int> rows)
{
    resetRows([&] {
        m_rows.hideAll();
        for (const int row : rows)
            m_rows.setHidden(position(row), false);
    });
}

// Current cell and scrolling

void VSFlexGrid::setCurrent(int row, int col)
{
    // The current cell may have been scrolled away, so it is shown again even if it does not change.
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

// Visible rows

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
