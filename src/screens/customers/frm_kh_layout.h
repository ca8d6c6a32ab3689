#pragma once

#include <QStringView>

#include <span>

namespace ebtq {

/// The place of a field or a range of two on the editor of a customer. Each group counts its rows from 0; all
/// groups share one grid of pairs of caption and field, so that the fields of the whole form line up.
struct CustomerCell
{
    enum Group { Customer, Wish, Price, Order, Remark };
    /// A range has a second field, its upper end; that of a price has a tick as its caption.
    enum Kind { Field, Range, TickedRange, State, Memo };

    Group group;
    int row;
    int pair;
    Kind kind;
    int number;     ///< of the field, of a range's lower end
    int pairs = 1;  ///< that it takes
    int upper = -1; ///< of a range's upper end
    int tick = -1;  ///< of a price's box
};

inline constexpr int customerPairs = 4;

/// Cells in reading order, which is the order of Tab and Enter.
[[nodiscard]] std::span<const CustomerCell> customerCells();
/// Of the groups before the remark, whose title the form holds.
[[nodiscard]] std::span<const QStringView> customerGroupTitles();

} // namespace ebtq
