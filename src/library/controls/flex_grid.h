#pragma once

#include "contracts/color_parts.h"
#include "database/values/row_block.h"
#include "library/controls/control.h"
#include "library/controls/grid_colors.h"
#include "library/controls/grid_columns.h"
#include "library/controls/grid_pictures.h"
#include "library/controls/grid_rows.h"
#include "library/controls/grid_sort.h"
#include "library/controls/grid_subtotals.h"

#include <QList>

#include <span>
#include <string_view>
#include <vector>

namespace ebtq {

/// The grid of every list. Rows and columns are numbered from 0, fixed rows and columns included; with one
/// fixed row the first data row is 1. A loaded block keeps its cells where they are; edited and inserted rows
/// are kept apart, and order and hidden rows are an index over both. Widths and heights are pixels at 96 dots
/// an inch.
///
/// A view asks for the cells that it paints by visible position: the n-th data row that is not hidden.
class VSFlexGrid : public Control
{
    Q_OBJECT
    Q_PROPERTY(int Rows READ Rows WRITE setRows)
    Q_PROPERTY(int Cols READ Cols WRITE setCols)
    Q_PROPERTY(int FixedRows READ FixedRows WRITE setFixedRows)
    Q_PROPERTY(int FixedCols READ FixedCols WRITE setFixedCols)
    Q_PROPERTY(int Row READ Row WRITE setRow)
    Q_PROPERTY(int Col READ Col WRITE setCol)
    Q_PROPERTY(int TopRow READ TopRow WRITE setTopRow)
    Q_PROPERTY(bool Redraw READ Redraw WRITE setRedraw)
    Q_PROPERTY(int FrozenCols READ FrozenCols WRITE setFrozenCols)
    Q_PROPERTY(int GridColor READ GridColor WRITE setGridColor)
    Q_PROPERTY(bool WordWrap READ WordWrap WRITE setWordWrap)
    Q_PROPERTY(int Records READ recordCount)
    Q_PROPERTY(int RecordsInSight READ recordCountInSight)
    Q_PROPERTY(int Version READ Version CONSTANT)

public:
    enum Align : int { AlignLeft = 1, AlignCentre = 4, AlignRight = 7, AlignGeneral = 9 };

    explicit VSFlexGrid(const QString &name, int index = -1);
    /// What formats may expect of the grid.
    [[nodiscard]] int Version() const { return 700; }

    // Shape
    [[nodiscard]] int Rows() const { return m_fixedInUse + m_rows.count(); }
    /// More rows are added empty at the end, fewer cut there; never below 0. Cuts the current row with them.
    void setRows(int rows);
    [[nodiscard]] int Cols() const { return static_cast<int>(m_columns.size()); }
    void setCols(int cols);
    [[nodiscard]] int FixedRows() const { return m_fixedRows; }
    /// The data rows stay and follow the new fixed ones. Only the first fixed row has contents.
    void setFixedRows(int rows);
    [[nodiscard]] int FixedCols() const { return m_fixedCols; }
    void setFixedCols(int cols) { m_fixedCols = cols; }
    /// Captions of the first fixed row, separated by "|"; a caption's blanks count towards its column's
    /// width. A leading "<", "^" or ">" aligns the column. Sets the number of columns and makes them anew.
    void setFormatString(const QString &format);
    [[nodiscard]] const QString &FormatString() const { return m_formatString; }

    // Cells. A cell outside of the grid reads as empty and takes nothing.
    [[nodiscard]] Q_INVOKABLE QString TextMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const QString &text);
    /// The same without making a QString; valid until the grid changes.
    [[nodiscard]] std::string_view cell(int row, int col) const;
    /// The text as it is shown: a number in the format of its column.
    [[nodiscard]] QString displayText(int row, int col) const;
    /// Takes a whole block over as the data rows, into the columns from `firstCol` on; cells to its left are
    /// empty and columns beyond Cols() are not shown. The former rows and their pictures are removed. The
    /// current row becomes the first data row when it lies beyond the new rows or on a fixed one.
    void LoadArray(RowBlock block, int firstCol = 0);
    /// Name of the icon in a cell; empty for none.
    [[nodiscard]] QString CellPicture(int row, int col) const;
    void setCellPicture(int row, int col, const QString &icon, int alignment = AlignCentre);
    [[nodiscard]] int CellPictureAlignment(int row, int col) const;
    /// Colours and weight of a cell, its own before those of a subtotal.
    [[nodiscard]] GridCellLook cellLook(int row, int col) const;
    /// The colour that all these cells of a row have; 0 when they differ or have none of their own.
    [[nodiscard]] int CellForeColor(int row, int fromCol, int toCol) const;
    [[nodiscard]] int CellBackColor(int row, int fromCol, int toCol) const;
    /// 0 gives the usual colour back.
    void setCellForeColor(int row, int fromCol, int toCol, int color);
    void setCellBackColor(int row, int fromCol, int toCol, int color);

    // Rows
    /// Puts an empty row at the row number `position`; at the end when it is beyond. The current row stays on
    /// its contents: its number moves with them, which is no change of row.
    void insertRow(int position);
    /// Nothing for a fixed row. The row below a removed current row becomes current under the same number,
    /// which is no change of row either; after the last row was removed it is the one above.
    void RemoveItem(int row);
    [[nodiscard]] bool RowHidden(int row) const;
    void setRowHidden(int row, bool hidden);
    void showAllRows();
    /// Hides every data row whose search text does not hold `text`. The search text of a row is its cell in
    /// the current column and then, for each of `columns`, "%" and the cell there; a column that the grid has
    /// not, as -1, is an empty cell, and the last one so puts a "%" at the end. One pass over the block's
    /// bytes.
    void hideRowsWithout(const QString &text, const QList<int> &columns,
                         Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);
    /// The first data row from `fromRow` on, hidden or not, whose search text, as above, holds `text`; -1
    /// when there is none.
    [[nodiscard]] int findRow(const QString &text, const QList<int> &columns, int fromRow,
                              Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;
    enum Searched : quint8 { AllRows, RowsInSight };
    /// The data rows with the text in one of these columns, or across neighbouring ones as above, without
    /// regard to case, in their order. Without columns none.
    [[nodiscard]] std::vector<int> rowsHolding(const QString &text, const QList<int> &columns,
                                               Searched searched) const;
    /// Hides every other data row.
    void showOnly(std::span<const int> rows);

    /// Puts the data rows in order by the current column and drops subtotals, which stood for another order.
    /// The current row goes with its contents, which is no change of row.
    void setSort(int sort);
    /// Rows with sums among the data rows; they are rows of the grid until they are cleared or the rows are
    /// loaded anew. The current row stays on its contents.
    void addSubtotals(std::span<const Subtotal> wanted);
    void clearSubtotals();
    [[nodiscard]] bool isSubtotal(int row) const;
    /// A text in a row of sums that is no sum itself; it extends over the empty cells beside it.
    [[nodiscard]] bool isSumLabel(int row, int col) const;
    /// Where the next sums go, below their group or above it.
    [[nodiscard]] SubtotalPosition subtotalPosition() const { return m_subtotalPosition; }
    void setSubtotalPosition(SubtotalPosition position) { m_subtotalPosition = position; }

    /// Data rows, without those of sums.
    [[nodiscard]] int recordCount() const { return m_rows.recordCount(); }
    [[nodiscard]] int recordCountInSight() const { return m_rows.recordCountInSight(); }

    // Columns
    /// Hidden by the screen itself; users cannot show it.
    [[nodiscard]] Q_INVOKABLE bool ColHidden(int col) const;
    void setColHidden(int col, bool hidden);
    /// 0 for a column that a person or the layout has hidden.
    [[nodiscard]] int ColWidth(int col) const;
    void setColWidth(int col, int width);
    /// Of a column without a width: the last width that it had.
    [[nodiscard]] int widthWhenShown(int col) const;
    /// True for the width that the format string gave.
    [[nodiscard]] bool isWidthGiven(int col) const;
    [[nodiscard]] bool isColumnInSight(int col) const { return !ColHidden(col) && ColWidth(col) > 0; }
    /// Equal neighbours in the column are shown as one cell.
    [[nodiscard]] bool MergeCol(int col) const;
    void setMergeCol(int col, bool merged);
    [[nodiscard]] QString ColFormat(int col) const;
    void setColFormat(int col, const QString &format);
    /// The number of a type, 0 for any; kept for the layout, which treats columns of 0 and 5 as numbers.
    [[nodiscard]] int ColDataType(int col) const;
    void setColDataType(int col, int type);
    [[nodiscard]] int ColAlignment(int col) const;
    void setColAlignment(int col, int alignment);
    /// AlignLeft, AlignCentre or AlignRight: the alignment of the column's texts; numbers are right-aligned
    /// unless set otherwise.
    [[nodiscard]] int shownAlignment(int col) const;
    /// Alignment of the column's cells in the fixed rows.
    [[nodiscard]] int FixedAlignment(int col) const;
    void setFixedAlignment(int col, int alignment);
    /// What the loaded block holds there; text for a column without one.
    [[nodiscard]] ColumnType columnType(int col) const;
    /// The visible order, by column number; all columns, hidden ones too.
    [[nodiscard]] const std::vector<int> &columnOrder() const { return m_columnOrder; }
    /// Ignored if it does not hold all columns.
    void setColumnOrder(const std::vector<int> &order);
    /// Widths and order as the format string gave them.
    void resetColumns();

    // Look
    /// Columns after the fixed ones that stay visible when the list is scrolled sideways.
    [[nodiscard]] int FrozenCols() const { return m_frozenCols; }
    void setFrozenCols(int cols);
    /// A colour number, also a system one.
    [[nodiscard]] int GridColor() const { return m_gridColor; }
    void setGridColor(int color);
    [[nodiscard]] bool WordWrap() const { return m_wordWrap; }
    void setWordWrap(bool wraps);
    /// All data rows have one height and all fixed rows have one; setting that of a row sets its kind's.
    [[nodiscard]] int RowHeight(int row) const { return row < m_fixedRows ? m_fixedRowHeight : m_rowHeight; }
    void setRowHeight(int row, int height);
    static constexpr int usualRowHeight = 28;
    /// Colour number of every second data row, red in its lowest byte; 0 for none.
    [[nodiscard]] int BackColorAlternate() const { return m_backColorAlternate; }
    void setBackColorAlternate(int color);
    /// Colour number of the current row; 0 for the usual one.
    [[nodiscard]] int SelectionColor() const { return m_selectionColor; }
    void setSelectionColor(int color);

    // Current cell and scrolling. Numbers outside of the grid are taken to its nearest end.
    /// -1 when there is no row; a fixed row while there are no others.
    [[nodiscard]] int Row() const { return m_row; }
    void setRow(int row) { setCurrent(row, m_col); }
    [[nodiscard]] int Col() const { return m_col; }
    void setCol(int col) { setCurrent(m_row, col); }
    /// Views scroll to the cell even when it is the current one already.
    void setCurrent(int row, int col);
    /// The first data row that is seen; never a fixed one.
    [[nodiscard]] int TopRow() const { return m_topRow; }
    void setTopRow(int row);
    /// While off, no view signal is sent; switching on sends, each when it changed meanwhile, columnsChanged,
    /// one rowsAboutToBeReset and rowsReset for all that happened to rows, topRowChanged and currentChanged.
    [[nodiscard]] bool Redraw() const { return m_redraw; }
    void setRedraw(bool on);

    // Visible rows, for views
    [[nodiscard]] int visibleCount() const { return m_rows.countInSight(); }
    /// The row number of the n-th visible data row; -1 when there is none.
    [[nodiscard]] int rowInSight(int position) const;
    /// The visible position of a data row; -1 when it is hidden or fixed.
    [[nodiscard]] int positionInSight(int row) const;
    /// The visible position of the first row from TopRow on that is not hidden, else of the last one; -1
    /// without a visible row.
    [[nodiscard]] int topInSight() const;
    /// Memory held for the data rows, in bytes.
    [[nodiscard]] size_t byteSize() const;

    // What a view reports
    void reportMouseDown(short button, short shift, float x, float y);
    void reportDoubleClick() { Q_EMIT DblClick(); }
    void reportFocus() { Q_EMIT GotFocus(); }
    /// A person changed widths, order or visibility of columns; the change itself is made before.
    void reportLayoutChanged() { Q_EMIT layoutChanged(); }

Q_SIGNALS:
    void AfterRowColChange(int oldRow, int oldCol, int newRow, int newCol);
    void MouseDown(short &Button, short &shift, float &X, float &Y);
    void DblClick();
    void GotFocus();
    /// By a user: to be saved at once.
    void layoutChanged();

    // For views only. Positions count visible rows, rows are row numbers; an inserted row is visible, and
    // hidden rows are inserted and removed without a signal.
    void rowsAboutToBeReset();
    void rowsReset();
    void rowAboutToBeInserted(int position);
    void rowInserted(int position);
    void rowAboutToBeRemoved(int position);
    void rowRemoved(int position);
    /// A cell's text or picture in that row, fixed or not.
    void rowChanged(int row);
    void columnsChanged();
    /// The current cell is to be marked and scrolled to.
    void currentChanged();
    /// Sent for scrolling by the user too, who reports it here through a view.
    void topRowChanged();

protected:
    VSFlexGrid(const QString &typeName, const QString &name, int index);

private:
    [[nodiscard]] bool hasCell(int row, int col) const;
    [[nodiscard]] bool isData(int row) const { return row >= m_fixedInUse && row < Rows(); }
    [[nodiscard]] int position(int row) const { return row - m_fixedInUse; }
    [[nodiscard]] quint32 pictureRow(int row) const;
    void forgetRows();
    [[nodiscard]] GridColumn *column(int col);
    [[nodiscard]] const GridColumn *column(int col) const;
    void replaceColumns(std::vector<GridColumn> columns);
    template<class T> void changeColumn(int col, T GridColumn::*member, T value);
    /// Emits a view signal, or marks its subject as outdated while redraw is off.
    template<class Signal, class... Arguments>
    void tell(bool &outdated, Signal signal, Arguments... arguments);
    template<class Change> void resetRows(Change change);
    /// A change of the rows' order after which current and top row are those with the same contents.
    template<class Change> void rearrangeRows(Change change);
    [[nodiscard]] int dataRowNear(int row) const;
    [[nodiscard]] int commonColor(int row, int fromCol, int toCol, int GridCellLook::*part) const;
    template<class T> void changeLook(T &member, T value);
    /// False when it is there already.
    bool moveCurrent(int row, int col);

    std::vector<GridColumn> m_columns;
    std::vector<int> m_columnOrder;
    QString m_formatString;
    GridRows m_rows;
    GridPictures m_pictures;
    GridPictures m_fixedPictures;
    GridColors m_colors;
    GridSubtotals m_subtotals;
    SubtotalPosition m_subtotalPosition = SubtotalPosition::Below;
    int m_fixedRows = 1;
    int m_fixedInUse = 1; ///< fewer than m_fixedRows only after Rows was set below it
    int m_fixedCols = 1;
    int m_row = 0;
    int m_col = -1;
    int m_topRow = 1;
    int m_backColorAlternate = 0;
    int m_selectionColor = 0;
    int m_frozenCols = 0;
    int m_gridColor = systemButtonFace;
    bool m_wordWrap = false;
    int m_rowHeight = usualRowHeight;
    int m_fixedRowHeight = usualRowHeight;
    bool m_redraw = true;
    bool m_rowsOutdated = false;
    bool m_columnsOutdated = false;
    bool m_topRowOutdated = false;
    bool m_currentOutdated = false;
};

template<class Signal, class... Arguments>
void VSFlexGrid::tell(bool &outdated, Signal signal, Arguments... arguments)
{
    if (m_redraw)
        Q_EMIT(this->*signal)(arguments...);
    else
        outdated = true;
}

/// The views are notified of the end also after an exception. Not by a destructor: what they do then may
/// throw.
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

} // namespace ebtq
