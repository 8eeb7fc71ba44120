#include "calibration/SffcProtocol.h"

namespace keocam {
namespace {

constexpr uint8_t kTableOfSlot = 0x11;

void append(std::vector<uint8_t>& bytes, uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<uint8_t>(value >> shift & 0xFF));
}

uint32_t longAt(const uint8_t* bytes) {
  return static_cast<uint32_t>(bytes[0]) << 24 | static_cast<uint32_t>(bytes[1]) << 16 |
         static_cast<uint32_t>(bytes[2]) << 8 | bytes[3];
}

// As the core's host has always divided: by zero gives zero, and all of it as remainder.
uint32_t quotient(uint32_t dividend, uint32_t divisor) { return divisor != 0 ? dividend / divisor : 0; }

}  // namespace

EraseRange eraseRange(const SffcRegion& region, const FlashGeometry& geometry) {
  const uint32_t whole = quotient(region.size_bytes, geometry.block_bytes);
  const bool part = whole * geometry.block_bytes != region.size_bytes;
  return {static_cast<uint16_t>(quotient(region.address - geometry.base, geometry.block_bytes) & 0xFFFF),
          part ? whole + 1 : whole};
}

std::vector<uint8_t> slotPayload(uint8_t slot) { return {0x00, slot, 0x00, kTableOfSlot}; }

std::vector<uint8_t> geometryPayload() { return {0xFF, 0xFF}; }

std::vector<uint8_t> useSlotPayload(CameraSerialSettings::RangeModes range) {
  return {0x00, static_cast<uint8_t>(range != CameraSerialSettings::LowRange ? 1 : 0)};
}

std::vector<uint8_t> erasePayload(uint16_t block) {
  return {static_cast<uint8_t>(block >> 8), static_cast<uint8_t>(block & 0xFF)};
}

std::vector<uint8_t> writePayload(uint32_t address, const uint8_t* data, uint32_t size) {
  std::vector<uint8_t> payload;
  payload.reserve(sizeof address + size);
  append(payload, address);
  payload.insert(payload.end(), data, data + size);
  return payload;
}

std::vector<uint8_t> readPayload(uint32_t address, uint32_t size) {
  std::vector<uint8_t> payload;
  append(payload, address);
  payload.push_back(static_cast<uint8_t>(size >> 8 & 0xFF));
  payload.push_back(static_cast<uint8_t>(size & 0xFF));
  return payload;
}

SffcRegion regionOf(const uint8_t* payload) { return {longAt(payload), longAt(payload + 4)}; }

FlashGeometry geometryOf(const uint8_t* payload) { return {longAt(payload), longAt(payload + 4)}; }

}  // namespace keocam
