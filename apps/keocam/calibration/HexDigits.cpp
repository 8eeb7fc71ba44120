#include "apps/keocam/calibration/HexDigits.h"

#include <algorithm>

namespace keocam::cli {
namespace {

// Without branches, so that a compiler makes vectors of the loop that calls it.
unsigned int isOther(char c) {
  const auto number = static_cast<unsigned char>(c - '0');
  const auto letter = static_cast<unsigned char>((c | 0x20) - 'a');
  return static_cast<unsigned int>(number > 9) & static_cast<unsigned int>(letter > 5);
}

}  // namespace

StrangeCharacters otherThanHexDigits(std::string_view text) {
  StrangeCharacters strange;
  for (const char c : text) strange.count += isOther(c);
  if (strange.count > 0) {
    const auto* const first = std::find_if(text.begin(), text.end(), [](char c) { return isOther(c) != 0; });
    strange.first = static_cast<std::size_t>(first - text.begin());
  }
  return strange;
}

std::string textOn(const StrangeCharacters& strange) {
  if (strange.count == 1) return "has 1 character that is no hexadecimal digit";
  return "has " + std::to_string(strange.count) + " characters that are no hexadecimal digits; this is the first";
}

}  // namespace keocam::cli
