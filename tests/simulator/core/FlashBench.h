// A core on the bench whose flash is used as a host uses it, message by message.
#pragma once

#include "CoreBench.h"

namespace core_test {

constexpr uint8_t kReadMemory = 210;
constexpr uint8_t kWriteMemory = 211;
constexpr uint8_t kEraseBlock = 212;
constexpr uint8_t kFlashGeometry = 213;
constexpr uint8_t kSlotRegion = 214;
constexpr uint8_t kLensSlot = 30;

constexpr uint8_t kOk = 0x00;
constexpr uint8_t kRange = 0x03;
constexpr uint8_t kByteCount = 0x09;

/// An address and what follows it.
Bytes at(uint32_t address, const Bytes& rest = {});

/// Bytes that differ from place to place, and from one seed to the next.
Bytes table(std::size_t size, uint8_t seed = 1);

/// Five blocks of 64 bytes from 0x1000; slot 0 is 100 bytes in blocks 1 and 2, slot 1 the same in 3 and 4.
simulator::FlashGeometry smallGeometry();

class FlashBench : public CoreBench {
 public:
  explicit FlashBench(simulator::FlashGeometry geometry = smallGeometry(),
                      simulator::CoreOptions options = quietOptions());

  uint8_t write(uint32_t address, const Bytes& data) { return statusOf(kWriteMemory, at(address, data)); }
  uint8_t erase(uint16_t block) { return statusOf(kEraseBlock, wordBytes(block)); }
  /// The payload; empty where the status is not 0.
  Bytes read(uint32_t address, uint16_t size);

  /// Erases a slot's blocks by what the queries say, and writes the table in pieces of 128 bytes. False at the first
  /// message that is not answered, or not with success.
  bool transfer(uint8_t slot, const Bytes& contents);
};

}  // namespace core_test
