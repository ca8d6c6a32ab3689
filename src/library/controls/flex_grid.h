#pragma once

#include "database/values/row_block.h"
#include "library/controls/control.h"
#include "library/controls/grid_columns.h"
#include "library/controls/grid_pictures.h"
#include "library/controls/grid_rows.h"

#include <QList>

#include <string_view>
#include <vector>

namespace ebtq {

/// The grid behind every list. Rows and columns are numbered from 0, fixed rows and columns included; with
/// one fixed row the first data row is 1. A loaded block keeps its cells where they are; edited and inserted
/// rows are kept apart, and order and hidden rows are an index over both. Widths and heights are pixels at 96
/// dots an inch.
///
/// A view asks for the cells that it paints by position in sight: the n-th data row that is not hidden.
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

public:
    enum Align : int { AlignLeft = 1, AlignCentre = 4, AlignRight = 7, AlignGeneral = 9 };

    explicit VSFlexGrid(const QString &name, int index = -1);

    // Shape
    [[nodiscard]] int Rows() const { return m_fixedInUse + m_rows.count(); }
    /// More rows are added empty at the end, fewer cut there; never below 0. Cuts the current row with them.
    void setRows(int rows);
    [[nodiscard]] int Cols() const { return static_cast<int>(m_columns.size()); }
    void setCols(int cols);
    [[nodiscard]] int FixedRows() const { return m_fixedRows; }
    /// The data rows stay and move behind the new fixed ones. Only the first fixed row has contents.
    void setFixedRows(int rows);
    [[nodiscard]] int FixedCols() const { return m_fixedCols; }
    void setFixedCols(int cols) { m_fixedCols = cols; }
    /// Captions of the first fixed row, parted by "|"; a caption's blanks count towards its column's width. A
    /// leading "<", "^" or ">" aligns the column. Sets the number of columns and makes them anew.
    void setFormatString(const QString &format);
    [[nodiscard]] const QString &FormatString() const { return m_formatString; }

    // Cells. A cell outside of the grid reads as empty and takes nothing.
    [[nodiscard]] QString TextMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const QString &text);
    /// The same without making a QString; valid until the grid changes.
    [[nodiscard]] std::string_view cell(int row, int col) const;
    /// Takes a whole block over as the data rows, into the columns from `firstCol` on; cells to its left are
    /// empty and columns beyond Cols() are not shown. The rows so far and their pictures are gone. The
    /// current row becomes the first data row when it lies beyond the new rows or stands on a fixed one.
    void LoadArray(RowBlock block, int firstCol = 0);
    /// Name of the icon in a cell; empty for none.
    [[nodiscard]] QString CellPicture(int row, int col) const;
    void setCellPicture(int row, int col, const QString &icon, int alignment = AlignCentre);
    [[nodiscard]] int CellPictureAlignment(int row, int col) const;

    // Rows
    /// Puts an empty row at the row number `position`; at the end when it is beyond. The current row stays on
    /// its contents: its number moves with them, which is no change of row.
    void insertRow(int position);
    /// Nothing for a fixed row. The row below a removed current row becomes current under the same number,
    /// which is no change of row either; behind the last row it is the one above.
    void RemoveItem(int row);
    [[nodiscard]] bool RowHidden(int row) const;
    void setRowHidden(int row, bool hidden);
    void showAllRows();
    /// Hides every data row whose search text does not hold `text`. The search text of a row is its cell in
    /// the current column and then, for each of `columns`, "%" and the cell there. One pass over the block's
    /// bytes unless `text` has a "%" or letters whose case does not count.
    void hideRowsWithout(const QString &text, const QList<int> &columns,
                         Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);
    /// The first data row from `fromRow` on, hidden or not, whose search text, as above, holds `text`; -1
    /// when there is none.
    [[nodiscard]] int findRow(const QString &text, const QList<int> &columns, int fromRow,
                              Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) const;

    // Columns
    [[nodiscard]] bool ColHidden(int col) const;
    void setColHidden(int col, bool hidden);
    [[nodiscard]] int ColWidth(int col) const;
    void setColWidth(int col, int width);
    [[nodiscard]] int ColAlignment(int col) const;
    void setColAlignment(int col, int alignment);
    /// Alignment of the column's cells in the fixed rows.
    [[nodiscard]] int FixedAlignment(int col) const;
    void setFixedAlignment(int col, int alignment);
    /// What the loaded block holds there; text for a column without one.
    [[nodiscard]] ColumnType columnType(int col) const;
    /// The order of sight, by column number; all columns, hidden ones too.
    [[nodiscard]] const std::vector<int> &columnOrder() const { return m_columnOrder; }

    // Look
    /// Colour number of every second data row, red in its lowest byte; 0 for none.
    [[nodiscard]] int BackColorAlternate() const { return m_backColorAlternate; }
    void setBackColorAlternate(int color);

    // Current cell and scrolling. Numbers outside of the grid are taken to its nearest end.
    /// -1 when there is no row; a fixed row while there are no others.
    [[nodiscard]] int Row() const { return m_row; }
    void setRow(int row) { setCurrent(row, m_col); }
    [[nodiscard]] int Col() const { return m_col; }
    void setCol(int col) { setCurrent(m_row, col); }
    /// Views bring the cell into sight even when it is the current one already.
    void setCurrent(int row, int col);
    /// The first data row that is seen; never a fixed one.
    [[nodiscard]] int TopRow() const { return m_topRow; }
    void setTopRow(int row);
    /// While off, no view signal is sent; switching on sends, each when it changed meanwhile, columnsChanged,
    /// one rowsAboutToBeReset and rowsReset for all that happened to rows, topRowChanged and currentChanged.
    [[nodiscard]] bool Redraw() const { return m_redraw; }
    void setRedraw(bool on);

    // Rows in sight, for views
    [[nodiscard]] int visibleCount() const { return m_rows.countInSight(); }
    /// The row number of the n-th data row in sight; -1 when there is none.
    [[nodiscard]] int rowInSight(int position) const;
    /// Where a data row stands in sight; -1 when it is hidden or fixed.
    [[nodiscard]] int positionInSight(int row) const;
    /// Where the first row in sight from TopRow on stands in sight, the last one when there is none; -1
    /// without a row in sight.
    [[nodiscard]] int topInSight() const;
    /// Memory held for the data rows, in bytes.
    [[nodiscard]] size_t byteSize() const;

    // What a view reports
    void reportMouseDown(short button, short shift, float x, float y);
    void reportDoubleClick() { Q_EMIT DblClick(); }
    void reportFocus() { Q_EMIT GotFocus(); }

Q_SIGNALS:
    void AfterRowColChange(int oldRow, int oldCol, int newRow, int newCol);
    void MouseDown(short &Button, short &shift, float &X, float &Y);
    void DblClick();
    void GotFocus();

    // For views only. Positions are in sight, rows are row numbers; an inserted row is in sight, and hidden
    // rows are inserted and removed without a signal.
    void rowsAboutToBeReset();
    void rowsReset();
    void rowAboutToBeInserted(int position);
    void rowInserted(int position);
    void rowAboutToBeRemoved(int position);
    void rowRemoved(int position);
    /// A cell's text or picture in that row, fixed or not.
    void rowChanged(int row);
    void columnsChanged();
    /// The current cell is to be marked and brought into sight.
    void currentChanged();
    /// Sent for scrolling by the user too, who reports it here through a view.
    void topRowChanged();

private:
    [[nodiscard]] bool hasCell(int row, int col) const;
    [[nodiscard]] bool isData(int row) const { return row >= m_fixedInUse && row < Rows(); }
    [[nodiscard]] int position(int row) const { return row - m_fixedInUse; }
    [[nodiscard]] quint32 pictureRow(int row) const;
    [[nodiscard]] GridColumn *column(int col);
    [[nodiscard]] const GridColumn *column(int col) const;
    void replaceColumns(std::vector<GridColumn> columns);
    template<class T> void changeColumn(int col, T GridColumn::*member, T value);
    /// Sends a view signal, or marks what it tells as outdated while nothing is drawn.
    template<class Signal, class... Arguments>
    void tell(bool &outdated, Signal signal, Arguments... arguments);
    template<class Change> void resetRows(Change change);
    /// False when it stands there already.
    bool moveCurrent(int row, int col);

    std::vector<GridColumn> m_columns;
    std::vector<int> m_columnOrder;
    QString m_formatString;
    GridRows m_rows;
    GridPictures m_pictures;
    GridPictures m_fixedPictures;
    int m_fixedRows = 1;
    int m_fixedInUse = 1; ///< fewer than m_fixedRows only after Rows was set below it
    int m_fixedCols = 1;
    int m_row = 0;
    int m_col = -1;
    int m_topRow = 1;
    int m_backColorAlternate = 0;
    bool m_redraw = true;
    bool m_rowsOutdated = false;
    bool m_columnsOutdated = false;
    bool m_topRowOutdated = false;
    bool m_currentOutdated = false;
};

} // namespace ebtq
