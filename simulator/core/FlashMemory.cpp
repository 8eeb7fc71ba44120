#include "simulator/core/FlashMemory.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace simulator {
namespace {

constexpr uint8_t kErased = 0xFF;

std::ptrdiff_t distance(std::size_t bytes) { return static_cast<std::ptrdiff_t>(bytes); }

}  // namespace

FlashMemory::FlashMemory(const FlashGeometry& geometry)
    : geometry_(geometry),
      contents_(flashBytes(geometry), kErased),
      block_bytes_(geometry.block_bytes == 0 ? contents_.size() : geometry.block_bytes),
      wear_(contents_.empty() ? 0 : contents_.size() / block_bytes_) {}

std::optional<std::size_t> FlashMemory::offsetOf(uint32_t address, std::size_t size) const {
  if (address < geometry_.base_address) return std::nullopt;
  const std::size_t offset = address - geometry_.base_address;
  if (offset > contents_.size() || size > contents_.size() - offset) return std::nullopt;
  return offset;
}

std::optional<Bytes> FlashMemory::read(uint32_t address, std::size_t size) {
  const auto offset = offsetOf(address, size);
  if (!offset) return std::nullopt;
  ++counters_.reads;
  const auto begin = contents_.begin() + distance(*offset);
  return Bytes(begin, begin + distance(size));
}

bool FlashMemory::write(uint32_t address, const uint8_t* data, std::size_t size) {
  const auto offset = offsetOf(address, size);
  const auto clearsBitsOnly = [&] {
    return std::equal(data, data + size, contents_.begin() + distance(*offset),
                      [](uint8_t wanted, uint8_t present) { return (wanted & present) == wanted; });
  };
  if (!offset || !clearsBitsOnly()) {
    ++counters_.refused_writes;
    return false;
  }
  ++counters_.writes;
  ++changes_;
  std::copy(data, data + size, contents_.begin() + distance(*offset));
  return true;
}

bool FlashMemory::erase(std::size_t block) {
  if (block >= wear_.size()) return false;
  ++counters_.erases;
  ++changes_;
  ++wear_[block];
  std::fill_n(contents_.begin() + distance(block * block_bytes_), block_bytes_, kErased);
  return true;
}

Bytes FlashMemory::slot(std::size_t slot) const {
  const FlashRegion& region = geometry_.slots.at(slot);
  const auto begin = contents_.begin() + distance(region.address - geometry_.base_address);
  return {begin, begin + distance(region.table_bytes)};
}

void FlashMemory::setSlot(std::size_t slot, const Bytes& table) {
  const FlashRegion& region = geometry_.slots.at(slot);
  if (table.size() != region.table_bytes) {
    throw std::invalid_argument("a table of " + std::to_string(table.size()) + " bytes does not fit lens slot " +
                                std::to_string(slot) + " of the core's flash, which has " +
                                std::to_string(region.table_bytes));
  }
  ++changes_;
  std::copy(table.begin(), table.end(), contents_.begin() + distance(region.address - geometry_.base_address));
}

void FlashMemory::setContents(Bytes contents) {
  if (contents.size() != contents_.size()) {
    throw std::invalid_argument("a flash of " + std::to_string(contents_.size()) + " bytes cannot hold " +
                                std::to_string(contents.size()));
  }
  contents_ = std::move(contents);
}

}  // namespace simulator
