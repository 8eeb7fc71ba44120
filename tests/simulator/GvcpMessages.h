// The control protocol as a host writes it, for tests: requests as bytes, answers taken apart.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace gvcp {

using Bytes = std::vector<uint8_t>;

constexpr uint16_t kReadRegister = 0x80;
constexpr uint16_t kWriteRegister = 0x82;
constexpr uint16_t kReadMemory = 0x84;
constexpr uint16_t kWriteMemory = 0x86;

/// A value's bytes, most significant first.
Bytes u16(uint32_t value);
Bytes u32(uint32_t value);
Bytes join(std::initializer_list<Bytes> parts);
uint32_t u32At(const Bytes& bytes, std::size_t at);
uint16_t u16At(const Bytes& bytes, std::size_t at);

/// A whole command; `flags` 1 asks for an answer.
Bytes request(uint16_t command, const Bytes& payload, uint16_t id, uint8_t flags = 1);
Bytes readRegister(uint32_t address, uint16_t id);
Bytes writeRegister(uint32_t address, uint32_t value, uint16_t id);
Bytes readMemory(uint32_t address, uint16_t count, uint16_t id);
Bytes writeMemory(uint32_t address, const Bytes& data, uint16_t id);
Bytes packetResend(uint32_t block, uint32_t first, uint32_t last, uint16_t id, uint8_t flags = 0);

/// An answer's parts; an empty datagram has `present` false.
struct Answer {
  bool present = false;
  uint16_t status = 0;
  uint16_t command = 0;
  uint16_t length = 0;
  uint16_t id = 0;
  Bytes payload;
};
Answer parse(const Bytes& datagram);

}  // namespace gvcp
