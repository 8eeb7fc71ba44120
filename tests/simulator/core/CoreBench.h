// A thermal core on the bench: a clock that the test turns, and frames made by this side's own rules.
#pragma once

#include <memory>
#include <vector>

#include "simulator/core/ThermalCore.h"

namespace core_test {

using simulator::Bytes;

constexpr uint64_t kMs = 1'000'000;
constexpr uint64_t kSecond = 1000 * kMs;

/// CRC-16 of polynomial 0x1021, by polynomial division of the message itself.
uint16_t crcOf(const Bytes& bytes);

/// A request with both check sums.
Bytes request(uint8_t function, const Bytes& payload = {});

/// An answer taken apart; `sound` says that lengths, check sums and the fixed bytes are right.
struct Answer {
  bool sound = false;
  uint8_t status = 0xFF;
  uint8_t function = 0xFF;
  Bytes payload;
  uint16_t word() const { return payload.size() == 2 ? simulator::loadU16(payload.data()) : uint16_t{0xFFFF}; }
};

Answer parse(const Bytes& bytes);

Bytes wordBytes(uint16_t word);

class CoreBench {
 public:
  /// The clock of `options` is replaced by the bench's.
  explicit CoreBench(simulator::CoreOptions options = quietOptions());

  /// Temperatures that stay, so that nothing happens by itself but by the period.
  static simulator::CoreOptions quietOptions();
  static simulator::CoreOptions plainOptions();  ///< quiet, and not radiometric

  Bytes send(const Bytes& bytes, const simulator::UartLine& line = simulator::ThermalCore::kLine);
  Answer ask(uint8_t function, const Bytes& payload = {});
  /// The status of the answer to a request that must come back in one sound frame.
  uint8_t statusOf(uint8_t function, const Bytes& payload = {});
  uint16_t word(uint8_t function, const Bytes& payload = {}) { return ask(function, payload).word(); }
  void pass(uint64_t duration_ns) { *now_ns_ += duration_ns; }

 private:
  std::shared_ptr<uint64_t> now_ns_ = std::make_shared<uint64_t>(100 * kSecond);

 public:
  simulator::ThermalCore core;
  uint64_t delay_ns = 0;  ///< of the last answer
};

}  // namespace core_test
