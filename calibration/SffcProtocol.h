// The core's commands for its tables of shutterless flat-field correction (SFFC), as bytes. Nothing here reaches a
// port.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "serial/CameraSerialSettings.h"

namespace keocam {

/// One of the core's commands.
struct SffcCommand {
  uint8_t code;
  int wait_us;               ///< from the request to looking for its answer
  std::size_t answer_bytes;  ///< payload of the answer; of kReadMemory the most
};

inline constexpr SffcCommand kUseSlot{30, 50'000, 0};
inline constexpr SffcCommand kReadMemory{210, 0, 128};
inline constexpr SffcCommand kWriteMemory{211, 0, 0};
inline constexpr SffcCommand kEraseBlock{212, 1'000'000, 0};
inline constexpr SffcCommand kFlashGeometry{213, 10'000, 8};
inline constexpr SffcCommand kSlotRegion{214, 10'000, 8};

/// How long the answer to a piece may take.
constexpr uint32_t kPieceAnswer_ms = 500;

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
/// All in 32 bits without sign: an address below the base is one far above it, and a block size whose top bit is set is
/// larger than any region. A block size of 0 gives one block, number 0, unless the region is empty.
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
