// Big-endian values in byte buffers, the order of everything on the control and stream protocols but pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace simulator {

using Bytes = std::vector<uint8_t>;

inline uint16_t loadU16(const uint8_t* at) { return static_cast<uint16_t>((at[0] << 8) | at[1]); }

inline uint32_t loadU32(const uint8_t* at) {
  return (static_cast<uint32_t>(loadU16(at)) << 16) | static_cast<uint32_t>(loadU16(at + 2));
}

inline uint64_t loadU64(const uint8_t* at) { return (static_cast<uint64_t>(loadU32(at)) << 32) | loadU32(at + 4); }

inline void storeU16(uint8_t* at, uint16_t value) {
  at[0] = static_cast<uint8_t>(value >> 8);
  at[1] = static_cast<uint8_t>(value);
}

inline void storeU32(uint8_t* at, uint32_t value) {
  storeU16(at, static_cast<uint16_t>(value >> 16));
  storeU16(at + 2, static_cast<uint16_t>(value));
}

inline void storeU64(uint8_t* at, uint64_t value) {
  storeU32(at, static_cast<uint32_t>(value >> 32));
  storeU32(at + 4, static_cast<uint32_t>(value));
}

inline void appendU16(Bytes& bytes, uint16_t value) {
  bytes.resize(bytes.size() + 2);
  storeU16(bytes.data() + bytes.size() - 2, value);
}

inline void appendU32(Bytes& bytes, uint32_t value) {
  bytes.resize(bytes.size() + 4);
  storeU32(bytes.data() + bytes.size() - 4, value);
}

}  // namespace simulator
