// The core's commands for its tables of shutterless flat-field correction (SFFC), as bytes. Nothing here reaches a
// port.
#pragma once

#include <cstdint>
#include <vector>

#include "serial/CameraSerialSettings.h"

namespace keocam {

constexpr uint8_t kReadMemory = 210;
constexpr uint8_t kWriteMemory = 211;
constexpr uint8_t kEraseBlock = 212;
constexpr uint8_t kFlashGeometry = 213;
constexpr uint8_t kSlotRegion = 214;
constexpr uint8_t kUseSlot = 30;

/// Bytes of a table that one message carries.
constexpr uint32_t kPiece_bytes = 128;

/// Where the core keeps one table.
struct SffcRegion {
  uint32_t address;
  uint32_t size_bytes;
};

/// The core's erasable memory.
struct FlashGeometry {
  uint32_t base;
  uint32_t block_bytes;
};

/// The blocks to erase for a region. Numbers pass from 65535 to 0.
struct EraseRange {
  uint16_t first;
  uint32_t count;
};
/// A block size of 0 gives one block, number 0, unless the region is empty.
EraseRange eraseRange(const SffcRegion& region, const FlashGeometry& geometry);

std::vector<uint8_t> slotPayload(uint8_t slot);
std::vector<uint8_t> geometryPayload();
/// Slot 0 for LowRange, slot 1 for any other.
std::vector<uint8_t> useSlotPayload(CameraSerialSettings::RangeModes range);
std::vector<uint8_t> erasePayload(uint16_t block);
std::vector<uint8_t> writePayload(uint32_t address, const uint8_t* data, uint32_t size);
std::vector<uint8_t> readPayload(uint32_t address, uint32_t size);

/// From the payload of a reply, 8 bytes.
SffcRegion regionOf(const uint8_t* payload);
FlashGeometry geometryOf(const uint8_t* payload);

}  // namespace keocam
