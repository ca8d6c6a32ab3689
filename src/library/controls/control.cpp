#include "library/controls/control.h"

namespace ebtq {

Control::Control(QString typeName, QString name, int index)
    : m_typeName(std::move(typeName))
    , m_name(std::move(name))
    , m_index(index)
{}

template<class T> void Control::change(T &member, const T &value)
{
    if (member == value)
        return;
    member = value;
    Q_EMIT stateChanged();
}

void Control::setEnabled(bool enabled)
{
    change(m_enabled, enabled);
}

void Control::setVisible(bool visible)
{
    change(m_visible, visible);
}

void Control::setCaption(const QString &caption)
{
    change(m_caption, caption);
}

void Control::setToolTipText(const QString &text)
{
    change(m_toolTipText, text);
}

} // namespace ebtq
