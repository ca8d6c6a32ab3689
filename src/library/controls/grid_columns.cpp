#include "library/controls/grid_columns.h"

#include "library/controls/flex_grid.h"

#include <QStringList>

#include <array>

namespace ebtq {

namespace {

constexpr int unitWidth = 7;
constexpr int edges = 14;

struct Range
{
    char16_t first;
    char16_t last;
};
/// Characters that take two units; the surrogates open the rarer Chinese characters.
constexpr std::array<Range, 8> wideCharacters{{{0x1100, 0x115F},
                                               {0x2E80, 0xA4CF},
                                               {0xAC00, 0xD7A3},
                                               {0xD800, 0xDBFF},
                                               {0xF900, 0xFAFF},
                                               {0xFE30, 0xFE6F},
                                               {0xFF00, 0xFF60},
                                               {0xFFE0, 0xFFE6}}};

int unitsOf(QChar c)
{
    if (c.isLowSurrogate())
        return 0;
    for (const Range &range : wideCharacters) {
        if (c >= QChar(range.first) && c <= QChar(range.last))
            return 2;
    }
    return 1;
}

int takeAlignment(QStringView &caption)
{
    const QChar mark = caption.isEmpty() ? QChar() : caption.front();
    const int alignment = mark == u'<'   ? VSFlexGrid::AlignLeft
                          : mark == u'^' ? VSFlexGrid::AlignCentre
                          : mark == u'>' ? VSFlexGrid::AlignRight
                                         : VSFlexGrid::AlignGeneral;
    if (alignment != VSFlexGrid::AlignGeneral)
        caption = caption.mid(1);
    return alignment;
}

} // namespace

int gridColumnWidth(QStringView text)
{
    int units = 0;
    for (const QChar c : text)
        units += unitsOf(c);
    return units * unitWidth + edges;
}

GridColumn emptyGridColumn()
{
    const int width = gridColumnWidth(u"          ");
    return {.width = width,
            .alignment = VSFlexGrid::AlignGeneral,
            .fixedAlignment = VSFlexGrid::AlignGeneral,
            .givenWidth = width,
            .shownWidth = width};
}

std::vector<GridColumn> gridColumns(const QString &format)
{
    std::vector<GridColumn> columns;
    const QStringList captions = format.split(u'|');
    for (QStringView caption : captions) {
        GridColumn column = emptyGridColumn();
        column.alignment = takeAlignment(caption);
        column.width = gridColumnWidth(caption);
        column.givenWidth = column.width;
        column.shownWidth = column.width;
        column.caption = caption.trimmed().toString().toStdString();
        columns.push_back(std::move(column));
    }
    return columns;
}

} // namespace ebtq
