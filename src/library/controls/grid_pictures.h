#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace ebtq {

/// Icons in cells, kept only for the cells that have one. Icon names are few and kept once.
class GridPictures
{
public:
    /// An empty `icon` takes the picture away.
    void set(quint32 row, int col, const QString &icon, int alignment);
    [[nodiscard]] QString icon(quint32 row, int col) const;
    /// `fallback` for a cell without a picture.
    [[nodiscard]] int alignment(quint32 row, int col, int fallback) const;
    void clear() { m_pictures.clear(); }
    [[nodiscard]] size_t byteSize() const;

private:
    struct Picture
    {
        int icon;
        int alignment;
    };
    [[nodiscard]] static quint64 key(quint32 row, int col)
    {
        return static_cast<quint64>(row) << 32 | static_cast<quint32>(col);
    }

    QHash<quint64, Picture> m_pictures;
    QStringList m_icons;
};

} // namespace ebtq
