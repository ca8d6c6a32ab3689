#pragma once

#include <QStringView>

#include <span>

namespace ebtq {

/// The place of a field with its caption on the editor of a listing. Each group counts its rows from 0; all
/// groups share one grid of pairs of caption and field, so that the fields of the whole form line up.
struct EditorCell
{
    enum Group { Basics, Deal, House, Owner };
    enum Kind { Field, Required, Computed, Rooms, Memo };

    Group group;
    int row;
    int pair;
    Kind kind;
    int number; ///< of the field, or of the box of many lines
};

inline constexpr int editorPairs = 5;
inline constexpr int wideCell = 2; ///< pairs that rooms and boxes take
inline constexpr int memoRows = 2;

/// Cells in reading order, which is the order of Tab and Enter.
[[nodiscard]] std::span<const EditorCell> editorCells();
/// Of the groups after the first, whose title the form holds.
[[nodiscard]] std::span<const QStringView> editorGroupTitles();

/// The counts of rooms in one row, each followed by what it counts.
struct RoomCount
{
    int number;
    int unit; ///< number of the field whose caption is the unit
};
[[nodiscard]] std::span<const RoomCount> roomCounts();

} // namespace ebtq
