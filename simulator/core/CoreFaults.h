// Faults that a core shows on request: silence, late, cut or wrong answers, lost bytes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string_view>
#include <vector>

#include "simulator/Bytes.h"

namespace simulator {

enum class CoreFault : std::size_t {
  NoAnswer,     ///< chance of an answer that is not sent, per thousand; the request is carried out
  LateAnswer,   ///< milliseconds
  CutAnswer,    ///< bytes missing at the answer's end
  WrongCrc,     ///< chance of a wrong check sum at the answer's end, per thousand
  WrongStatus,  ///< the answer's status; the request is carried out, the check sums are right
  LossIn,       ///< chance of a byte that does not reach the core, per thousand
  LossOut,      ///< chance of a byte that does not leave it, per thousand
  Noise,        ///< random bytes before the answer
  Deaf,         ///< chance of a request that is neither carried out nor answered, per thousand
  Count
};

constexpr std::size_t kCoreFaultCount = static_cast<std::size_t>(CoreFault::Count);

/// A fault, when it begins and how long it stays.
struct CoreFaultSetting {
  static constexpr uint32_t kForGood = UINT32_MAX;
  uint32_t value = 0;                       ///< in the fault's unit; 0 is no fault
  uint32_t frames = kForGood;               ///< requests that are left to be answered with it
  uint32_t after = 0;                       ///< requests that are answered without it before
  std::optional<uint8_t> after_function{};  ///< the only function whose requests count for `after`; empty: all do
};

using CoreFaultSettings = std::array<CoreFaultSetting, kCoreFaultCount>;

/// How options and console commands know a fault; rows of coreFaultKnobs(), in the order of CoreFault.
struct CoreFaultKnob {
  std::string_view name;      ///< as a command; "--" in front makes it an option
  std::string_view argument;  ///< what the value is; kCoreFaultMore may follow
  std::string_view help;
  uint32_t maximum;
};

const std::array<CoreFaultKnob, kCoreFaultCount>& coreFaultKnobs();

constexpr std::string_view kCoreFaultMore = " [FRAMES [AFTER]]";

/// A fault from the numbers that stand behind its name: value, frames (0: for good), frames before it begins. Empty
/// where these are none or too many, or the value is too large.
std::optional<CoreFaultSetting> coreFaultOf(const CoreFaultKnob& knob, const std::vector<uint32_t>& numbers);

/// Not thread-safe.
class CoreFaults {
 public:
  CoreFaults(const CoreFaultSettings& settings, uint64_t seed);

  const CoreFaultSettings& settings() const { return settings_; }
  void set(CoreFault fault, CoreFaultSetting setting) { at(fault) = setting; }

  /// Whether a request is lost on the core; one that is uses up one frame of each fault.
  bool misses(uint8_t function);

  /// What reaches the core of bytes sent to it.
  Bytes arriving(const uint8_t* data, std::size_t size);

  /// Turns an answer into what is sent of it, and uses up one frame of each fault. Adds the answer's delay.
  Bytes leaving(Bytes answer, uint64_t& delay_ns);

 private:
  CoreFaultSetting& at(CoreFault fault) { return settings_[static_cast<std::size_t>(fault)]; }
  uint32_t value(CoreFault fault) const;
  bool strikes(CoreFault fault);
  void lose(CoreFault fault, Bytes& bytes);
  void useUpOneFrame(uint8_t function);

  CoreFaultSettings settings_;
  std::mt19937_64 generator_;
};

}  // namespace simulator
