#pragma once

#include "database/connection.h"
#include "database/values/row_block.h"

#include <QString>

#include <optional>

namespace ebtq::host {

/// What a typed text stands for.
struct Match
{
    QString value;
    QString text;
};

/// The entries of an inline list such as "|本人;0|本部;1", a row each: text and value.
[[nodiscard]] RowBlock inlineListRows(const QString &list);
[[nodiscard]] bool isInlineList(const QString &base);
[[nodiscard]] bool isDate(const QString &base);

/// The cell that gives a field's value or text: the column of that name, or the column `otherwise` for an
/// empty name. Throws Failure for a name that is no column.
[[nodiscard]] int columnFor(const RowBlock &rows, const QString &name, int otherwise);
/// A row's value and text.
[[nodiscard]] Match matchOf(const RowBlock &rows, qsizetype row, int valueColumn, int textColumn);

/// Looks a typed text up. `base` is a statement with "@" for the text, an inline list, whose entries match by
/// text or value without regard to case, or "date", which gives a date in regional form as value and text.
/// The columns of a statement's first row give value and text; empty names stand for the first and the
/// second. Nothing when nothing matches. Throws Failure and db::DatabaseError.
[[nodiscard]] std::optional<Match> judge(db::Connection &connection, const QString &base,
                                         const QString &valueField, const QString &textField,
                                         const QString &typedText);

} // namespace ebtq::host
