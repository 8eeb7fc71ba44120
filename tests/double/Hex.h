// Bytes as text, the way the log and the tests write them: "6e 00 fc".
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace scripted {

inline std::string hex(const uint8_t* data, std::size_t size) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (std::size_t i = 0; i < size; ++i) {
    if (i > 0) text += ' ';
    text += kDigits[data[i] >> 4];
    text += kDigits[data[i] & 0xF];
  }
  return text;
}

inline std::string hex(const std::vector<uint8_t>& bytes) { return hex(bytes.data(), bytes.size()); }

}  // namespace scripted
