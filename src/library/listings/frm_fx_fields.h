#pragma once

#include "library/controls/field_control.h"
#include "library/frame/look_up.h"

#include <QString>
#include <QStringView>

#include <span>

namespace ebtq {

/// What on the form holds a value of a listing.
enum class Holder {
    FieldText, ///< the text of a field
    Key,       ///< the key behind a field, in its Tag
    Memo,      ///< the text of a box of many lines
    Ticks,     ///< the three tick boxes, as one number
};

/// How a value goes into a statement.
enum class Saved {
    Not,
    Text,   ///< trimmed, between apostrophes
    Number, ///< its leading number, bare
    Date,   ///< as it stands between "#": the database is to refuse what is no date
};

/// How a value comes out of a row.
enum class Loaded { Not, Trimmed, Number, AsItComes };

/// One value of a listing: a control of the form and its column.
struct ListingValue
{
    Holder holder;
    int number;
    QStringView
        caption;        ///< as the control draws it on its left: it ends with the unit of the field before it
    QStringView column; ///< of fyxx, or of what the load adds to it
    Saved saved = Saved::Text;
    Loaded loaded = Loaded::Trimmed;
    LookUp lookUp = {};
    qzTxt_S::TextAlignment alignment = qzTxt_S::AlignLeft;
};

/// All values in the order in which statements write them and a load reads them. The author's id stands
/// twice, since it is written in front of a column behind which it is read. A field has one entry of
/// Holder::FieldText.
[[nodiscard]] std::span<const ListingValue> listingValues();
/// The entry with the text of a field. Throws Failure for a number that no field has.
[[nodiscard]] const ListingValue &editorField(int number);

} // namespace ebtq
