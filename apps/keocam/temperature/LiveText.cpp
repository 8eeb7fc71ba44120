#include "apps/keocam/temperature/LiveText.h"

#include <algorithm>

namespace keocam::cli {

std::string LiveText::instead(const std::string& text) {
  constexpr const char* kEraseToEndOfLine = "\x1b[K";
  constexpr const char* kEraseBelow = "\x1b[J";
  std::string result = "\r";
  if (lines_ > 0) result += "\x1b[" + std::to_string(lines_) + 'A';
  for (const char c : text) {
    if (c == '\n') result += kEraseToEndOfLine;
    result += c;
  }
  lines_ = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  return result + kEraseBelow;
}

}  // namespace keocam::cli
