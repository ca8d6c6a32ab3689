#include "screens/controls/qz_grid_view.h"

#include "library/controls/qz_grid.h"
#include "screens/look/look.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

#include <algorithm>

namespace ebtq {

QzGridView::QzGridView(qzGrid &grid, QWidget *parent)
    : FlexGridView(grid, parent)
    , m_grid(grid)
{
    setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed);
    connect(&grid, &qzGrid::finishRequested, this, &QzGridView::finishEdit);
    connect(&grid, &Control::stateChanged, this, &QzGridView::follow);
}

/// One that is closed is hidden until it is deleted.
QWidget *QzGridView::openEditor() const
{
    const auto editors = viewport()->findChildren<QLineEdit *>(Qt::FindDirectChildrenOnly);
    const auto open = std::ranges::find_if_not(editors, &QWidget::isHidden);
    return open == editors.end() ? nullptr : *open;
}

/// What was being typed when the record was given up goes with it.
void QzGridView::follow()
{
    QWidget *editor = openEditor();
    if (!m_grid.Editable() && editor)
        closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

void QzGridView::finishEdit()
{
    QWidget *editor = openEditor();
    if (!editor)
        return;
    commitData(editor);
    FlexGridView::closeEditor(editor, QAbstractItemDelegate::NoHint);
}

/// The Enter that ends an editor comes here as well.
void QzGridView::editCurrent()
{
    if (!openEditor() && m_grid.isCellEditable(m_grid.Row(), currentIndex().column()))
        edit(currentIndex());
}

/// What is typed goes into the current cell, so it is framed within its row.
void QzGridView::paintEvent(QPaintEvent *event)
{
    FlexGridView::paintEvent(event);
    if (!m_grid.Editable() || !hasFocus() || !m_grid.isCellEditable(m_grid.Row(), m_grid.Col()))
        return;
    QPainter painter(viewport());
    painter.setPen(look::tokens().brand);
    painter.drawRect(visualRect(currentIndex()).adjusted(0, 0, -1, -2));
}

// Going through the cells

/// The editor's text is in the grid by now.
void QzGridView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    FlexGridView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    const bool isBack = hint == QAbstractItemDelegate::EditPreviousItem;
    if (!isBack && hint != QAbstractItemDelegate::EditNextItem &&
        hint != QAbstractItemDelegate::SubmitModelCache)
        return;
    if (isBack ? m_grid.goOn(false) : m_grid.goOnTyping())
        editCurrent();
}

/// Tab leaves the grid after its last cell.
bool QzGridView::focusNextPrevChild(bool next)
{
    return m_grid.goOn(next) || FlexGridView::focusNextPrevChild(next);
}

void QzGridView::mouseDoubleClickEvent(QMouseEvent *event)
{
    FlexGridView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid())
        editCurrent();
}

// Keys

/// The program's keys of the same letters must not take them away while a cell can be edited.
bool QzGridView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && m_grid.Editable()) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (key.matches(QKeySequence::Copy) || key.matches(QKeySequence::Paste) ||
            key.key() == Qt::Key_Delete || key.key() == Qt::Key_Insert) {
            event->accept();
            return true;
        }
    }
    return FlexGridView::event(event);
}

void QzGridView::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && m_grid.Editable())
        editCurrent();
    else if (!runCommand(*event))
        FlexGridView::keyPressEvent(event);
}

bool QzGridView::runCommand(const QKeyEvent &key)
{
    if (key.matches(QKeySequence::Copy))
        copy();
    else if (!m_grid.Editable())
        return false;
    else if (key.matches(QKeySequence::Paste))
        paste();
    else if (key.key() == Qt::Key_Insert)
        addRow();
    else if (key.key() == Qt::Key_Delete && key.modifiers().testFlag(Qt::ControlModifier))
        removeRow();
    else if (key.key() == Qt::Key_Delete)
        emptyCell();
    else
        return false;
    return true;
}

void QzGridView::addRow()
{
    finishEdit();
    if (!m_grid.addRow())
        return;
    setFocus(Qt::OtherFocusReason);
    editCurrent();
}

void QzGridView::removeRow()
{
    finishEdit();
    m_grid.deleteRow(m_grid.Row());
    setFocus(Qt::OtherFocusReason);
}

void QzGridView::emptyCell()
{
    m_grid.edit(m_grid.Row(), m_grid.Col(), {});
}

void QzGridView::copy() const
{
    QApplication::clipboard()->setText(m_grid.TextMatrix(m_grid.Row(), m_grid.Col()));
}

/// A grid without rows takes a block too, from its first cell on.
void QzGridView::paste()
{
    const QString text = QApplication::clipboard()->text();
    if (text.isEmpty() || (m_grid.Rows() == m_grid.FixedRows() && !m_grid.addRow()))
        return;
    m_grid.paste(text);
}

} // namespace ebtq
