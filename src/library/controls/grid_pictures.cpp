#include "library/controls/grid_pictures.h"

namespace ebtq {

void GridPictures::set(quint32 row, int col, const QString &icon, int alignment)
{
    if (icon.isEmpty()) {
        m_pictures.remove(key(row, col));
        return;
    }
    qsizetype at = m_icons.indexOf(icon);
    if (at < 0) {
        at = m_icons.size();
        m_icons.append(icon);
    }
    m_pictures.insert(key(row, col), {static_cast<int>(at), alignment});
}

QString GridPictures::icon(quint32 row, int col) const
{
    const auto found = m_pictures.constFind(key(row, col));
    return found == m_pictures.constEnd() ? QString() : m_icons[found->icon];
}

int GridPictures::alignment(quint32 row, int col, int fallback) const
{
    const auto found = m_pictures.constFind(key(row, col));
    return found == m_pictures.constEnd() ? fallback : found->alignment;
}

size_t GridPictures::byteSize() const
{
    // The table keeps its entries in place, with one byte of index for each.
    return static_cast<size_t>(m_pictures.capacity()) * (sizeof(quint64) + sizeof(Picture) + 1);
}

} // namespace ebtq
