#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

namespace ebtq {

/// The images of a tree: names of icons, by key or by number from 1.
class ImageList
{
public:
    /// False for a key that is taken.
    bool Add(const QString &key, const QString &iconName);
    [[nodiscard]] int Count() const { return static_cast<int>(m_icons.size()); }
    /// The icon's name; empty for a key or number that is not there.
    [[nodiscard]] QString Picture(const QVariant &keyOrIndex) const;

private:
    QStringList m_keys;
    QStringList m_icons;
};

} // namespace ebtq
