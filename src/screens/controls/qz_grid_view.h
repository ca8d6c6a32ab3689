#pragma once

#include "screens/controls/flex_grid_view.h"

namespace ebtq {

class qzGrid;

/// The widget of a qzGrid. A cell is edited by typing into it, by F2, Enter or a double click; Tab and Enter
/// go on to the next cell, Shift+Tab back. Insert adds a row, Ctrl+Delete removes the current one, Delete
/// empties the cell, Ctrl+C copies it and Ctrl+V pastes a block of cells from it on.
class QzGridView : public FlexGridView
{
    Q_OBJECT

public:
    QzGridView(qzGrid &grid, QWidget *parent);

    /// Adds or removes a row as the keys do, with what is being typed kept.
    void addRow();
    void removeRow();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    [[nodiscard]] QWidget *openEditor() const;
    void follow();
    void finishEdit();
    /// Opens the editor in the current cell.
    void editCurrent();
    [[nodiscard]] bool runCommand(const QKeyEvent &key);
    void copy() const;
    void paste();
    void emptyCell();

    qzGrid &m_grid;
};

} // namespace ebtq
