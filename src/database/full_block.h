#pragma once

#include "database/values/row_block.h"

namespace ebtq::db {

/// Whether a block of Connection::readTable is full: a few megabytes, or that many short rows.
[[nodiscard]] inline bool isFull(const RowBlock &block)
{
    constexpr qsizetype mostRows = 4096;
    constexpr size_t fullSize = size_t(4) << 20;
    return block.arena().size() >= fullSize || block.rowCount() >= mostRows;
}

} // namespace ebtq::db
