// Where the core's flash lies, how it is divided, and where the tables of the two lens slots are in it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace simulator {

constexpr std::size_t kLensSlots = 2;

/// Where one slot's table is.
struct FlashRegion {
  uint32_t address = 0;
  uint32_t table_bytes = 0;
};

struct FlashGeometry {
  uint32_t base_address = 0;  ///< of block 0
  uint32_t block_bytes = 0;   ///< erased at once; 0: the whole flash is one block, whose size the core does not tell
  std::array<FlashRegion, kLensSlots> slots{};
};

constexpr std::size_t kLargestFlashBytes = std::size_t{256} * 1024 * 1024;
constexpr uint32_t kUsualBlockBytes = 128 * 1024;

/// Both slots at the beginning of a block, one after the other, above one block that is not theirs: so a slot's first
/// block number is not 0, nor is it what the address alone would give.
FlashGeometry flashGeometryFor(uint32_t table_bytes, uint32_t block_bytes = kUsualBlockBytes);

/// From the base to the end of the last slot, in whole blocks. Throws std::invalid_argument for a geometry that no
/// core can have, with a text that says why.
std::size_t flashBytes(const FlashGeometry& geometry);

}  // namespace simulator
