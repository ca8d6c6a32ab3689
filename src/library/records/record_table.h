#pragma once

#include "database/values/sql_text.h"

#include <QString>
#include <QStringView>

#include <functional>
#include <span>

namespace ebtq {

class Recordset;

/// What on a form holds a value of its row. Numbers count the controls of one kind, in the order in which the
/// form has made them.
enum class Holder {
    FieldText, ///< the text of a field
    FieldKey,  ///< the key that goes with the text of a field, in its Tag
    Memo,      ///< the text of a box of many lines
    Tick,      ///< a tick box: 0 or 1
    FirstTick, ///< the first of the tick boxes that is ticked, counted from 1; the last when none is
    TickSum, ///< the tick boxes as one number: 1 for the first, 2 for the second, 4 for the third, added up;
             ///< none is ticked for any other number
    Option,  ///< the chosen option button, counted from 0; the last for any other number and for no choice
    Cell,    ///< a cell of the row of a grid that is being written; its number is the column's
    Given,   ///< no control: what the form answers for the column
};

/// How a value goes into a statement.
enum class Saved {
    Not,
    Text,    ///< trimmed, between apostrophes
    AsTyped, ///< between apostrophes
    Number,  ///< its leading number, bare
    Date,    ///< as it stands between "#": the database is to refuse what is no date
    TrimmedDate,
};

/// How a value comes out of a row.
enum class Loaded {
    Not,
    Trimmed,
    Number, ///< its leading number: 0 for Null
    AsItComes,
};

/// One value of a row: a control of the form and its column.
struct RecordColumn
{
    Holder holder;
    int number;         ///< of the control or the grid's column; -1 for Given
    QStringView column; ///< of the table, or of what the load adds to it
    Saved saved = Saved::Text;
    Loaded loaded = Loaded::Trimmed;
};

/// How the statements on a row spell their words. The database does not care; whoever reads a trace does.
struct StatementWords
{
    QStringView insert = u"insert into ";
    QStringView values = u")values(";
    QStringView update = u"update ";
    QStringView set = u" set ";
    QStringView where = u" where ";
};

/// How a key stands in a statement.
enum class KeyKind { Text, Number };

/// The row that a form edits. The three lists are the orders in which a load fills the form and the
/// statements are written; entries that are not loaded or not saved are left out there.
struct RecordTable
{
    QStringView table; ///< as the statements spell it
    QStringView key;
    std::span<const RecordColumn> load;
    std::span<const RecordColumn> insert;
    std::span<const RecordColumn> update;
    KeyKind keyKind = KeyKind::Text;
    StatementWords words = {};
};

/// The present text of a value on the form.
using HeldText = std::function<QString(const RecordColumn &)>;

[[nodiscard]] SqlText insertStatement(const RecordTable &record, const QString &key, const HeldText &held);
[[nodiscard]] SqlText updateStatement(const RecordTable &record, const QString &key, const HeldText &held);
/// " where KEYCOLUMN='key'", or with the bare number.
[[nodiscard]] SqlText whereKey(const RecordTable &record, const QString &key);
/// The text that a column gives to its control, Null as an empty one.
[[nodiscard]] QString loadedText(const RecordColumn &column, const Recordset &row);
/// The first column whose text has an apostrophe, which no statement can carry; nullptr when there is none.
[[nodiscard]] const RecordColumn *columnWithApostrophe(std::span<const RecordColumn> columns,
                                                       const HeldText &held);
/// Both texts are saved as the same value.
[[nodiscard]] bool isSameValue(const RecordColumn &column, const QString &one, const QString &other);

} // namespace ebtq
