// A table as text: columns side by side, cut to a width.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace keocam::cli {

using TableRow = std::vector<std::string>;

inline constexpr std::size_t kUnlimitedWidth = static_cast<std::size_t>(-1);

/// The columns of a table on standard output: the terminal's. A file or a pipe has no width, there cells stay whole.
std::size_t widthOfOutput();

/// `header` and `rows` as lines of at most `width` columns, two blanks between the table's columns and none at a line's
/// end. Where the cells need more, the widest columns are cut, never below their heading. The cells are results of
/// printable(), as many in each row as in the header.
std::string formatTable(const TableRow& header, const std::vector<TableRow>& rows, std::size_t width);

}  // namespace keocam::cli
