#include "screens/controls/combo_view.h"

#include "library/controls/combo_box.h"
#include "screens/controls/control_binding.h"

#include <QLineEdit>
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
    showText();
    connect(&combo, &XPCombo::Change, this, &ComboView::showText);
    connect(&combo, &Control::stateChanged, this, &ComboView::showText);
    connect(this, &QComboBox::editTextChanged, this, [this](const QString &text) { m_combo.setText(text); });
    connect(this, &QComboBox::activated, this, &ComboView::confirmed);
    connect(lineEdit(), &QLineEdit::returnPressed, this, &ComboView::confirmed);
}

/// Keeps the current entry with the text: a combo box that finds them different when it loses the focus would
/// take it for a choice.
void ComboView::showText()
{
    const QSignalBlocker blocker(this);
    const int cursor = lineEdit()->cursorPosition();
    if (count() != m_combo.items().size()) {
        clear();
        addItems(m_combo.items());
    }
    setCurrentIndex(findText(m_combo.Text(), Qt::MatchFixedString | Qt::MatchCaseSensitive));
    if (currentText() != m_combo.Text())
        setEditText(m_combo.Text());
    lineEdit()->setCursorPosition(cursor);
}

void ComboView::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

} // namespace ebtq
