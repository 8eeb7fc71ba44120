// A table whose last column goes on in further lines where it is too long.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {

/// As formatTable(), but cells of the last column are broken at blanks instead of being cut.
std::string wrappedTable(const TableRow& header, const std::vector<TableRow>& rows, std::size_t width);

}  // namespace keocam::cli
