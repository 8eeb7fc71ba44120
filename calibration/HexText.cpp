#include "calibration/HexText.h"

#include <array>
#include <cstring>

namespace keocam {
namespace {

constexpr int digitOf(unsigned int c) {
  if (c >= '0' && c <= '9') return static_cast<int>(c - '0');
  if (c >= 'a' && c <= 'f') return static_cast<int>(c - 'a') + 10;
  if (c >= 'A' && c <= 'F') return static_cast<int>(c - 'A') + 10;
  return -1;
}

constexpr bool isBlank(unsigned int c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// What strtol makes of two characters: blanks and a sign may stand before the digits.
constexpr uint8_t valueOfPair(unsigned int first, unsigned int second) {
  const int high = digitOf(first);
  const int low = digitOf(second);
  if (high >= 0) return static_cast<uint8_t>(low >= 0 ? high * 16 + low : high);
  if (low < 0) return 0;
  if (isBlank(first) || first == '+') return static_cast<uint8_t>(low);
  return static_cast<uint8_t>(first == '-' ? -low : 0);
}

using Pairs = std::array<uint8_t, 65536>;

// Indexed by the first character and, above it, the second.
Pairs makePairs() {
  Pairs pairs{};
  for (unsigned int first = 0; first < 256; ++first) {
    for (unsigned int second = 0; second < 256; ++second) pairs[second << 8 | first] = valueOfPair(first, second);
  }
  return pairs;
}

// Any characters, by the table.
void decodePairs(const uint8_t* characters, std::size_t count, uint8_t* bytes) {
  static const Pairs pairs = makePairs();
  for (std::size_t i = 0; i < count; ++i) {
    bytes[i] = pairs[static_cast<std::size_t>(characters[2 * i + 1] << 8 | characters[2 * i])];
  }
}

constexpr std::size_t kBlock_bytes = 64;

// One block of nothing but digits, in steps that a compiler makes vectors of, several times as fast as the table. False
// if there is any other character: then `bytes` are to be written again.
bool decodeDigits(const uint8_t* characters, uint8_t* bytes) {
  std::array<uint8_t, 2 * kBlock_bytes> digits;
  uint8_t others = 0;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    const auto number = static_cast<uint8_t>(characters[i] - '0');
    const auto letter = static_cast<uint8_t>((characters[i] | 0x20) - 'a');
    const auto is_number = static_cast<uint8_t>(number < 10 ? 0xFF : 0);
    const auto is_letter = static_cast<uint8_t>(letter < 6 ? 0xFF : 0);
    digits[i] = static_cast<uint8_t>((number & is_number) | ((letter + 10) & is_letter));
    others = static_cast<uint8_t>(others | ~(is_number | is_letter));
  }
  for (std::size_t i = 0; i < kBlock_bytes; ++i) {
    bytes[i] = static_cast<uint8_t>(digits[2 * i] << 4 | digits[2 * i + 1]);
  }
  return others == 0;
}

}  // namespace

void decodeHex(std::string_view text, uint8_t* bytes) {
  const auto* const characters = reinterpret_cast<const uint8_t*>(text.data());
  const std::size_t count = hexBytes(text);
  std::size_t done = 0;
  for (; done + kBlock_bytes <= count; done += kBlock_bytes) {
    const uint8_t* const block = characters + 2 * done;
    if (!decodeDigits(block, bytes + done)) decodePairs(block, kBlock_bytes, bytes + done);
  }
  decodePairs(characters + 2 * done, count - done, bytes + done);
}

float decodeHexFloat(std::string_view text) {
  uint8_t bytes[4] = {};
  decodeHex(text.substr(0, 8), bytes);
  const uint32_t bits = static_cast<uint32_t>(bytes[3]) << 24 | static_cast<uint32_t>(bytes[2]) << 16 |
                        static_cast<uint32_t>(bytes[1]) << 8 | bytes[0];
  float value = 0;
  static_assert(sizeof value == sizeof bits);
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

}  // namespace keocam
