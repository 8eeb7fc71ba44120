// NOR flash: what is erased reads 0xFF, writing only clears bits, and erasing wears a block.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "simulator/Bytes.h"
#include "simulator/core/FlashGeometry.h"

namespace simulator {

struct FlashCounters {
  uint64_t reads = 0;
  uint64_t writes = 0;
  uint64_t erases = 0;
  uint64_t refused_writes = 0;  ///< outside the flash, or onto what was not erased; with the right number of bytes
};

/// Addresses are the core's. What is refused changes nothing. Not thread-safe.
class FlashMemory {
 public:
  /// Erased as a whole, without wear. Throws as flashBytes().
  explicit FlashMemory(const FlashGeometry& geometry);

  /// Empty where not all of it lies in the flash.
  std::optional<Bytes> read(uint32_t address, std::size_t size);

  /// False where not all of it lies in the flash, or where a bit would have to be set.
  bool write(uint32_t address, const uint8_t* data, std::size_t size);

  /// False where there is no such block.
  bool erase(std::size_t block);

  /// The contents of a slot's region. Throws std::out_of_range for another slot than 0 and 1.
  Bytes slot(std::size_t slot) const;
  /// Puts contents in as the factory does: no wear, nothing is counted. Throws std::invalid_argument for a table of
  /// another size than the slot's.
  void setSlot(std::size_t slot, const Bytes& table);

  /// All of it, and its replacement, which must be of the same size.
  const Bytes& contents() const { return contents_; }
  void setContents(Bytes contents);

  const FlashGeometry& geometry() const { return geometry_; }
  const FlashCounters& counters() const { return counters_; }
  /// Grows with every change of the contents but setContents().
  uint64_t changes() const { return changes_; }
  /// How often each block was erased.
  const std::vector<uint32_t>& wear() const { return wear_; }

 private:
  /// Where a piece begins in the contents; empty where not all of it is there.
  std::optional<std::size_t> offsetOf(uint32_t address, std::size_t size) const;

  FlashGeometry geometry_;
  Bytes contents_;
  std::size_t block_bytes_;
  std::vector<uint32_t> wear_;
  FlashCounters counters_;
  uint64_t changes_ = 0;
};

}  // namespace simulator
