// Bytes written as hexadecimal pairs, read as leniently as calibration texts have always been.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace keocam {

/// Bytes that a text holds: half its characters; a last single one counts for nothing.
constexpr std::size_t hexBytes(std::string_view text) { return text.size() / 2; }

/// Writes hexBytes(text) bytes to `bytes`. Each pair is what strtol with base 16 makes of it: 0 for "zz", 7 for "7z",
/// 5 for " 5". Fastest where there are only digits.
void decodeHex(std::string_view text, uint8_t* bytes);

/// The float of eight characters, lowest byte first, whatever the order of this machine.
float decodeHexFloat(std::string_view text);

}  // namespace keocam
