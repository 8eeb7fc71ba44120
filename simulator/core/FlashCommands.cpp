#include "simulator/core/FlashCommands.h"

#include <optional>

namespace simulator {
namespace {

constexpr std::size_t kAddressBytes = 4;
constexpr std::size_t kLargestRead = 256;

Bytes twoNumbers(uint32_t first, uint32_t second) {
  Bytes bytes;
  appendU32(bytes, first);
  appendU32(bytes, second);
  return bytes;
}

CoreAnswer outOfRange() { return {CoreStatus::RangeError, {}, 0}; }

CoreAnswer read(FlashMemory& flash, const Bytes& payload) {
  const std::size_t size = loadU16(payload.data() + kAddressBytes);
  if (size == 0 || size > kLargestRead) return outOfRange();
  std::optional<Bytes> bytes = flash.read(loadU32(payload.data()), size);
  if (!bytes) return outOfRange();
  return {CoreStatus::Ok, std::move(*bytes), 0};
}

CoreAnswer write(FlashMemory& flash, const Bytes& payload) {
  const bool written =
      flash.write(loadU32(payload.data()), payload.data() + kAddressBytes, payload.size() - kAddressBytes);
  return written ? CoreAnswer{} : outOfRange();
}

CoreAnswer erase(FlashMemory& flash, const Bytes& payload, uint64_t erase_ns) {
  if (!flash.erase(loadU16(payload.data()))) return outOfRange();
  return {CoreStatus::Ok, {}, erase_ns};
}

}  // namespace

CoreAnswer performOnFlash(FlashMemory& flash, MemoryOperation operation, const Bytes& payload, uint64_t erase_ns) {
  switch (operation) {
    case MemoryOperation::Read:
      return read(flash, payload);
    case MemoryOperation::Write:
      return write(flash, payload);
    case MemoryOperation::Erase:
      return erase(flash, payload, erase_ns);
    case MemoryOperation::None:
      break;
  }
  return outOfRange();
}

Bytes geometryAnswer(const FlashGeometry& geometry) { return twoNumbers(geometry.base_address, geometry.block_bytes); }

Bytes regionAnswer(const FlashRegion& region) { return twoNumbers(region.address, region.table_bytes); }

}  // namespace simulator
