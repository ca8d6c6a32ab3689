#pragma once

#include "contracts/parameter_list.h"
#include "database/values/sql_text.h"
#include "host/panel_presenter.h"
#include "host/pickers/list_definition.h"

namespace ebtq::host {

/// The rows of a list from which a person chooses. Rows that cannot be chosen are there too, since a tree
/// needs them.
[[nodiscard]] SqlText rowsToShow(const ListDefinition &list);
/// The rows that a typed text stands for and that may be chosen.
[[nodiscard]] SqlText rowsThatMatch(const ListDefinition &list, const ParameterList &parameters,
                                    const QString &typedText);
/// A panel over the rows of a list; the row with `presetText` in a column that is shown is current.
[[nodiscard]] Panel panelOf(const ListDefinition &list, const ParameterList &parameters, RowBlock rows,
                            const QString &presetText);

/// The first row with that text in one of the columns shown, without regard to case; -1 when there is none.
[[nodiscard]] qsizetype rowWithText(const Panel &panel, const QString &text);

} // namespace ebtq::host
