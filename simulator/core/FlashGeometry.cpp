#include "simulator/core/FlashGeometry.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace simulator {
namespace {

constexpr uint32_t kUsualBase = 0x00200000;

constexpr uint64_t roundedUp(uint64_t bytes, uint64_t block_bytes) {
  return block_bytes == 0 ? bytes : (bytes + block_bytes - 1) / block_bytes * block_bytes;
}

}  // namespace

FlashGeometry flashGeometryFor(uint32_t table_bytes, uint32_t block_bytes) {
  FlashGeometry geometry;
  geometry.base_address = kUsualBase;
  geometry.block_bytes = block_bytes;
  uint64_t address = uint64_t{kUsualBase} + block_bytes;
  for (FlashRegion& slot : geometry.slots) {
    slot = {static_cast<uint32_t>(address), table_bytes};
    address += roundedUp(table_bytes, block_bytes);
  }
  return geometry;
}

std::size_t flashBytes(const FlashGeometry& geometry) {
  uint64_t end = 0;
  for (const FlashRegion& slot : geometry.slots) {
    if (slot.address < geometry.base_address) {
      throw std::invalid_argument("a lens slot at address " + std::to_string(slot.address) +
                                  " begins before the flash, whose base is " + std::to_string(geometry.base_address));
    }
    end = std::max(end, uint64_t{slot.address} - geometry.base_address + slot.table_bytes);
  }
  const uint64_t bytes = roundedUp(end, geometry.block_bytes);
  if (bytes > kLargestFlashBytes || geometry.base_address + bytes > uint64_t{UINT32_MAX} + 1) {
    throw std::invalid_argument("a flash of " + std::to_string(bytes) + " bytes from address " +
                                std::to_string(geometry.base_address) +
                                " is too large: 256 MiB and 32-bit addresses are the most");
  }
  return bytes;
}

}  // namespace simulator
