#pragma once

#include "database/values/row_block.h"

#include <QList>
#include <QStringList>

namespace ebtq::test {

/// A finished block of text columns.
[[nodiscard]] inline RowBlock blockOf(int columns, const QList<QStringList> &rows)
{
    RowBlock block(std::vector<Column>(static_cast<size_t>(columns)));
    for (const QStringList &row : rows) {
        for (const QString &cell : row)
            block.append(cell.toStdString());
    }
    block.finish();
    return block;
}

} // namespace ebtq::test
