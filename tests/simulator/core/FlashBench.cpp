#include "FlashBench.h"

#include <algorithm>

namespace core_test {
namespace {

simulator::CoreOptions withFlash(simulator::CoreOptions options, simulator::FlashGeometry geometry) {
  options.flash.geometry = geometry;
  return options;
}

}  // namespace

Bytes at(uint32_t address, const Bytes& rest) {
  Bytes payload(4 + rest.size());
  simulator::storeU32(payload.data(), address);
  std::copy(rest.begin(), rest.end(), payload.begin() + 4);
  return payload;
}

Bytes table(std::size_t size, uint8_t seed) {
  Bytes bytes(size);
  for (std::size_t i = 0; i < size; ++i)
    bytes[i] = static_cast<uint8_t>((i * 37 + i / 251 + seed * std::size_t{101}) & 0xFFU);
  return bytes;
}

simulator::FlashGeometry smallGeometry() { return {0x1000, 64, {{{0x1040, 100}, {0x10C0, 100}}}}; }

FlashBench::FlashBench(simulator::FlashGeometry geometry, simulator::CoreOptions options)
    : CoreBench(withFlash(std::move(options), geometry)) {}

Bytes FlashBench::read(uint32_t address, uint16_t size) {
  const Answer answer = ask(kReadMemory, at(address, wordBytes(size)));
  return answer.sound && answer.status == kOk ? answer.payload : Bytes();
}

bool FlashBench::transfer(uint8_t slot, const Bytes& contents) {
  const Answer region = ask(kSlotRegion, {0, slot, 0, 0x11});
  const Answer geometry = ask(kFlashGeometry, {0xFF, 0xFF});
  if (!region.sound || !geometry.sound) return false;
  const uint32_t address = simulator::loadU32(region.payload.data());
  const uint32_t size = simulator::loadU32(region.payload.data() + 4);
  const uint32_t base = simulator::loadU32(geometry.payload.data());
  const uint32_t block_bytes = simulator::loadU32(geometry.payload.data() + 4);
  const uint32_t first = block_bytes == 0 ? 0 : (address - base) / block_bytes;
  const uint32_t count = block_bytes == 0 ? 1 : (size + block_bytes - 1) / block_bytes;
  const auto done = [this](uint8_t function, const Bytes& payload) {
    const Answer answer = ask(function, payload);
    return answer.sound && answer.status == kOk;
  };
  for (uint32_t i = 0; i < count; ++i) {
    if (!done(kEraseBlock, wordBytes(static_cast<uint16_t>(first + i)))) return false;
  }
  for (std::size_t offset = 0; offset < contents.size(); offset += 128) {
    const auto begin = contents.begin() + static_cast<std::ptrdiff_t>(offset);
    const auto end = begin + static_cast<std::ptrdiff_t>(std::min<std::size_t>(128, contents.size() - offset));
    if (!done(kWriteMemory, at(address + static_cast<uint32_t>(offset), Bytes(begin, end)))) return false;
  }
  return true;
}

}  // namespace core_test
