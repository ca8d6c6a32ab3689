#include "library/controls/combo_box.h"

namespace ebtq {

XPCombo::XPCombo(const QString &name, int index)
    : Control(QStringLiteral("XPCombo"), name, index)
{}

void XPCombo::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    Q_EMIT Change();
}

void XPCombo::setItems(const QStringList &items)
{
    m_items = items;
    Q_EMIT stateChanged();
}

} // namespace ebtq
