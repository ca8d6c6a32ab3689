#pragma once

#include <QHash>

namespace ebtq {

/// Colours that were given to single cells, kept only for these; 0 is the usual colour.
class GridColors
{
public:
    struct Colors
    {
        int back = 0;
        int fore = 0;
    };
    void setBack(quint32 row, int col, int color) { m_colors[key(row, col)].back = color; }
    void setFore(quint32 row, int col, int color) { m_colors[key(row, col)].fore = color; }
    [[nodiscard]] Colors of(quint32 row, int col) const
    {
        return m_colors.isEmpty() ? Colors() : m_colors.value(key(row, col));
    }
    void remove(quint32 row, int col) { m_colors.remove(key(row, col)); }
    void clear() { m_colors.clear(); }

private:
    [[nodiscard]] static quint64 key(quint32 row, int col)
    {
        return static_cast<quint64>(row) << 32 | static_cast<quint32>(col);
    }

    QHash<quint64, Colors> m_colors;
};

} // namespace ebtq
