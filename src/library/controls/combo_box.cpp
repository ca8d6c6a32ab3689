#include "library/controls/combo_box.h"

using namespace Qt::StringLiterals;

namespace ebtq {

XPCombo::XPCombo(const QString &name, int index)
    : Control(u"XPCombo"_s, name, index)
{}

void XPCombo::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    m_index = static_cast<int>(m_items.indexOf(text));
    Q_EMIT Change();
}

void XPCombo::setItems(const QStringList &items, const QList<int> &keys)
{
    m_items = items;
    m_keys = keys;
    m_index = static_cast<int>(m_items.indexOf(m_text));
    Q_EMIT stateChanged();
}

void XPCombo::setListIndex(int index)
{
    if (index == m_index || index < 0 || index >= m_items.size())
        return;
    m_index = index;
    m_text = m_items.at(index);
    Q_EMIT Change();
}

} // namespace ebtq
