#include "GvcpMessages.h"

namespace gvcp {

Bytes u16(uint32_t value) { return {static_cast<uint8_t>(value >> 8), static_cast<uint8_t>(value)}; }

Bytes u32(uint32_t value) { return join({u16(value >> 16), u16(value & 0xFFFF)}); }

Bytes join(std::initializer_list<Bytes> parts) {
  Bytes all;
  for (const Bytes& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

uint16_t u16At(const Bytes& bytes, std::size_t at) {
  return static_cast<uint16_t>((bytes.at(at) << 8) | bytes.at(at + 1));
}

uint32_t u32At(const Bytes& bytes, std::size_t at) {
  return (static_cast<uint32_t>(u16At(bytes, at)) << 16) | u16At(bytes, at + 2);
}

Bytes request(uint16_t command, const Bytes& payload, uint16_t id, uint8_t flags) {
  return join({{0x42, flags}, u16(command), u16(static_cast<uint32_t>(payload.size())), u16(id), payload});
}

Bytes readRegister(uint32_t address, uint16_t id) { return request(kReadRegister, u32(address), id); }

Bytes writeRegister(uint32_t address, uint32_t value, uint16_t id) {
  return request(kWriteRegister, join({u32(address), u32(value)}), id);
}

Bytes readMemory(uint32_t address, uint16_t count, uint16_t id) {
  return request(kReadMemory, join({u32(address), u16(0), u16(count)}), id);
}

Bytes writeMemory(uint32_t address, const Bytes& data, uint16_t id) {
  return request(kWriteMemory, join({u32(address), data}), id);
}

Bytes packetResend(uint32_t block, uint32_t first, uint32_t last, uint16_t id, uint8_t flags) {
  return request(0x40, join({u32(block), u32(first), u32(last)}), id, flags);
}

Answer parse(const Bytes& datagram) {
  if (datagram.size() < 8) return {};
  return {true,
          u16At(datagram, 0),
          u16At(datagram, 2),
          u16At(datagram, 4),
          u16At(datagram, 6),
          Bytes(datagram.begin() + 8, datagram.end())};
}

}  // namespace gvcp
