#pragma once

#include <QString>

#include <optional>

namespace ebtq::host {

/// A list from which a field's value is chosen, as data: what is read, shown, matched and given back. Help
/// lists and pickers are made of the same definitions. Members that hold several entries part them by
/// semicolons.
struct ListDefinition
{
    QStringView name = {}; ///< help code or picker name
    QStringView title = {};
    QStringView select = {}; ///< select list and tables
    QStringView kind = {};   ///< of the data dictionary's entries; empty for every other table
    QStringView order = {};
    QStringView matches = {};   ///< expressions that a typed text is compared with
    QStringView numberKey = {}; ///< a column that a typed number is compared with too; may be empty
    QStringView valueColumn = {};
    QStringView textColumn = {};
    QStringView shown = {};           ///< columns in order, each as "column" or "column=caption"
    QStringView levelCodeColumn = {}; ///< not empty for a tree
    QStringView detailColumn = {}; ///< only rows with 1 there can be chosen when `detailParameter` is not 0
    QStringView detailParameter = {};
};

/// Nothing when there is no list of that name; names compare without regard to case.
[[nodiscard]] std::optional<ListDefinition> listNamed(QStringView name);

} // namespace ebtq::host
