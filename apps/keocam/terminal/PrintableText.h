// Text of unknown origin made fit for a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace keocam::cli {

/// `text` on one line with everything escaped that could steer a terminal or mislead a reader: control characters,
/// invalid UTF-8, invisible and direction-changing characters, and whatever may not be one column wide. Such a byte
/// appears as \x1b. Printable ASCII and the letters of European alphabets stay as they are. The result is valid UTF-8
/// and takes one column per code point.
std::string printable(std::string_view text);

/// printable() in double quotes.
std::string inQuotes(std::string_view text);

/// The columns that a result of printable() takes.
std::size_t columnsOf(std::string_view printable_text);

/// The first `columns` columns of a result of printable(), or all of it.
std::string_view firstColumns(std::string_view printable_text, std::size_t columns);

/// The first `columns` columns of a result of printable(); text cut off is marked by a tilde in the last column.
std::string fitted(std::string_view printable_text, std::size_t columns);

}  // namespace keocam::cli
