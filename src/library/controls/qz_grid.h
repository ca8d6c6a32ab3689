#pragma once

#include "library/controls/flex_grid.h"

namespace ebtq {

/// The grid of the data-entry modules, whose cells are edited in their places. The first column numbers the
/// rows. It is kept with its form, by its widths alone. What a person does to it changes nothing while it is
/// not editable.
class qzGrid : public VSFlexGrid
{
    Q_OBJECT
    Q_PROPERTY(bool Editable READ Editable WRITE setEditable NOTIFY stateChanged)

public:
    explicit qzGrid(const QString &name, int index = -1);

    [[nodiscard]] bool Editable() const { return m_isEditable; }
    void setEditable(bool editable);
    /// Removes all data rows.
    void Clear();
    /// So many empty data rows, numbered, in place of the present ones.
    void makeRows(int count);
    /// A cell of a data row in a visible column after the fixed ones.
    [[nodiscard]] bool isCellEditable(int row, int col) const;

    // What a view passes on

    void edit(int row, int col, const QString &text);
    /// Adds a row at the end and goes to its first cell; false when it was refused.
    bool addRow();
    /// Removes a data row; false when it was refused.
    bool deleteRow(int row);
    /// Writes a block of cells from the current cell on, from a fixed column the row's first cell, into the
    /// columns in sight; rows are added as they are needed. Columns beyond the last one are dropped. False
    /// when a row was refused.
    bool paste(const QString &block);
    /// Goes to the next cell that can be edited, or the one before. False where there is none.
    bool goOn(bool forward);
    /// The next cell for who is typing: after the last one a row is added, unless the last is still empty.
    bool goOnTyping();
    /// To be called before the cells are read: an editor that is open in a view writes its text.
    void finishEdit() { Q_EMIT finishRequested(); }

Q_SIGNALS:
    /// A person has changed a cell.
    void CellChanged(int row, int col);
    void AddVsRow(int row, bool &isAllowed);
    void DeleteVsRow(int row, bool &isAllowed);
    void finishRequested();

private:
    [[nodiscard]] std::vector<int> editableColumns() const;
    [[nodiscard]] bool isRowEmpty(int row) const;
    bool appendRow();
    void numberFrom(int row);
    bool pasteRow(int row, const std::vector<int> &columns, const QStringList &cells);

    bool m_isEditable = false;
};

} // namespace ebtq
