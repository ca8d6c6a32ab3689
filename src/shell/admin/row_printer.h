#pragma once

#include "database/values/row_block.h"

#include <cstdio>

namespace ebtq::admin {

/// Prints rows as lines of tab-separated cells: Null as NULL, dates in regional form, binary contents as
/// hexadecimal digits; a tab, line end or backslash within a text as \t, \n, \r and \\. The cells' bytes go
/// from the block to the stream.
void printRows(const RowBlock &rows, std::FILE *stream);

} // namespace ebtq::admin
