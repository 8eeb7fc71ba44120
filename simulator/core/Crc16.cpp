#include "simulator/core/Crc16.h"

namespace simulator {

// Bit by bit: a frame has a few dozen bytes and takes milliseconds on its line.
uint16_t crc16(const uint8_t* data, std::size_t size) {
  constexpr uint32_t kPolynomial = 0x1021;
  uint32_t crc = 0;
  for (std::size_t i = 0; i < size; ++i) {
    crc ^= static_cast<uint32_t>(data[i]) << 8;
    for (int bit = 0; bit < 8; ++bit) crc = (crc & 0x8000U) != 0 ? (crc << 1) ^ kPolynomial : crc << 1;
  }
  return static_cast<uint16_t>(crc);
}

}  // namespace simulator
