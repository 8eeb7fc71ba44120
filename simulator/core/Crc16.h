// The check sum of the core's serial protocol.
#pragma once

#include <cstddef>
#include <cstdint>

namespace simulator {

/// CRC-16 with polynomial 0x1021 and initial value 0, most significant bit first, nothing reflected or inverted.
uint16_t crc16(const uint8_t* data, std::size_t size);

}  // namespace simulator
