#include "screens/controls/combo_view.h"

#include "library/controls/combo_box.h"
#include "screens/controls/control_binding.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace ebtq {

ComboView::ComboView(XPCombo &combo, QWidget *parent)
    : QComboBox(parent)
    , m_combo(combo)
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    bindControl(combo, *this);
    follow();
    connect(&combo, &XPCombo::Change, this, &ComboView::follow);
    connect(&combo, &Control::stateChanged, this, &ComboView::showText);
    connect(this, &QComboBox::editTextChanged, this, &ComboView::take);
    connect(this, &QComboBox::currentIndexChanged, this, [this] { take(currentText()); });
    connect(this, &QComboBox::activated, this, [this] {
        if (!m_isStepping)
            confirm();
    });
    connect(lineEdit(), &QLineEdit::returnPressed, this, &ComboView::confirm);
}

void ComboView::take(const QString &text)
{
    const auto taking = m_exchange.take();
    if (currentIndex() >= 0 && itemText(currentIndex()) == text)
        m_combo.setListIndex(currentIndex()); // entries of equal names differ by position
    else
        m_combo.setText(text);
}

/// A text that code sets counts as confirmed.
void ComboView::follow()
{
    if (!m_exchange.isTaking())
        m_confirmedText = m_combo.Text();
    showText();
}

void ComboView::confirm()
{
    m_confirmedText = m_combo.Text();
    m_combo.reportClick();
    Q_EMIT confirmed();
}

void ComboView::keyPressEvent(QKeyEvent *event)
{
    const QScopedValueRollback stepping(m_isStepping, true);
    QComboBox::keyPressEvent(event);
}

/// The open list, a menu or another window takes the keyboard for a while only.
void ComboView::focusOutEvent(QFocusEvent *event)
{
    QComboBox::focusOutEvent(event);
    const bool comesBack = event->reason() == Qt::PopupFocusReason ||
                           event->reason() == Qt::ActiveWindowFocusReason ||
                           event->reason() == Qt::MenuBarFocusReason;
    if (!comesBack && m_combo.Text() != m_confirmedText)
        confirm();
}

/// Keeps the current entry with the text: a combo box that finds them different when it loses the focus would
/// take it for a choice.
void ComboView::showText()
{
    const QSignalBlocker blocker(this);
    const int cursor = lineEdit()->cursorPosition();
    if (m_shownItems != m_combo.items()) {
        m_shownItems = m_combo.items();
        clear();
        addItems(m_shownItems);
    }
    setCurrentIndex(m_combo.ListIndex());
    if (currentText() != m_combo.Text())
        setEditText(m_combo.Text());
    lineEdit()->setCursorPosition(cursor);
}

void ComboView::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

} // namespace ebtq
