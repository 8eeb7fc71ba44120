// The checksum of the thermal core's protocol: CRC-16/XMODEM (polynomial 0x1021, initial value 0, most significant bit
// first, no reflection, no final XOR).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace keocam {

constexpr uint16_t kCrcPolynomial = 0x1021;

constexpr std::array<uint16_t, 256> makeCrcTable() {
  std::array<uint16_t, 256> table{};
  for (unsigned int i = 0; i < table.size(); ++i) {
    unsigned int crc = i << 8;
    for (int bit = 0; bit < 8; ++bit) crc = (crc & 0x8000) != 0 ? (crc << 1) ^ kCrcPolynomial : crc << 1;
    table[i] = static_cast<uint16_t>(crc);
  }
  return table;
}

}  // namespace keocam

/// Entry i is the CRC of the single byte i.
inline constexpr std::array<uint16_t, 256> crc16tab = keocam::makeCrcTable();

namespace keocam {

/// CRC of `size` bytes.
constexpr uint16_t crc16(const uint8_t* data, std::size_t size) {
  uint16_t crc = 0;
  for (std::size_t i = 0; i < size; ++i) {
    crc = static_cast<uint16_t>(crc16tab[static_cast<std::size_t>((crc >> 8) ^ data[i])] ^ (crc << 8));
  }
  return crc;
}

}  // namespace keocam
