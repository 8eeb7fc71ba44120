#include "simulator/core/CoreFrame.h"

#include "simulator/core/Crc16.h"

namespace simulator {

Bytes encodeFrame(uint8_t function, uint8_t status, const Bytes& payload) {
  Bytes bytes{kProcessCode, status, 0, function};
  appendU16(bytes, static_cast<uint16_t>(payload.size()));
  appendU16(bytes, crc16(bytes.data(), bytes.size()));
  bytes.insert(bytes.end(), payload.begin(), payload.end());
  appendU16(bytes, crc16(bytes.data(), bytes.size()));
  return bytes;
}

}  // namespace simulator
