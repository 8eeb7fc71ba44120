// Characters that should be hexadecimal digits, and are not.
#pragma once

#include <cstddef>
#include <string_view>

namespace keocam::cli {

struct StrangeCharacters {
  std::size_t count = 0;
  std::size_t first = 0;  ///< offset in the text; only if there are any
};

/// At memory speed.
StrangeCharacters otherThanHexDigits(std::string_view text);

}  // namespace keocam::cli
