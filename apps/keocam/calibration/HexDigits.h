// Characters that should be hexadecimal digits, and are not.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace keocam::cli {

struct StrangeCharacters {
  std::size_t count = 0;
  std::size_t first = 0;  ///< offset in the text; only if there are any
};

/// At memory speed.
StrangeCharacters otherThanHexDigits(std::string_view text);

/// "has 3 characters that are no hexadecimal digits; this is the first", for at least one.
std::string textOn(const StrangeCharacters& strange);

}  // namespace keocam::cli
