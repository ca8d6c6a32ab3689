#include "library/controls/image_list.h"

namespace ebtq {

bool ImageList::Add(const QString &key, const QString &iconName)
{
    if (!key.isEmpty() && m_keys.contains(key))
        return false;
    m_keys.append(key);
    m_icons.append(iconName);
    return true;
}

QString ImageList::Picture(const QVariant &keyOrIndex) const
{
    const bool isKey = keyOrIndex.typeId() == QMetaType::QString && !keyOrIndex.toString().isEmpty();
    return m_icons.value(isKey ? m_keys.indexOf(keyOrIndex.toString()) : keyOrIndex.toInt() - 1);
}

} // namespace ebtq
