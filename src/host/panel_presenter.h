#pragma once

#include "database/values/row_block.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

namespace ebtq::host {

/// A list or tree from which a person chooses one row, shown at a field.
struct Panel
{
    QString title;
    RowBlock rows;
    /// Columns of `rows` to show, in order, with their captions.
    struct ShownColumn
    {
        int column;
        QString caption;
    };
    std::vector<ShownColumn> shown;
    /// A tree when not -1: a row stands below the row whose code is the longest proper beginning of its own.
    int levelCodeColumn = -1;
    /// Only rows with 1 in this column can be chosen; -1 when all can.
    int choosableColumn = -1;
    /// The row that is current when the panel opens; -1 for none.
    qsizetype currentRow = -1;
    int left = 0; ///< screen position of the panel's corner, in pixels
    int top = 0;
};

/// The host's way to the person: the shell implements it with widgets, tests script it.
class PanelPresenter
{
public:
    virtual ~PanelPresenter() = default;
    /// Shows the panel and returns when it closes: the chosen row of `rows`, or nothing.
    virtual std::optional<qsizetype> choose(const Panel &panel) = 0;
    /// The same with a calendar.
    virtual std::optional<QDate> chooseDate(const QDate &preset, int left, int top) = 0;
};

} // namespace ebtq::host
