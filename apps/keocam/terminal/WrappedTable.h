// A table whose last column goes on in further lines where it is too long.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {

/// As formatTable(), but nothing is cut: cells of the last column are broken at blanks, and words that are longer than
/// a line within. Where the other columns leave no room for it, lines are longer than `width`.
std::string wrappedTable(const TableRow& header, const std::vector<TableRow>& rows, std::size_t width);

}  // namespace keocam::cli
