// Faults that a simulated camera shows on request: lost packets, ignored commands, silence.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <random>
#include <string_view>

#include "simulator/Statistics.h"

namespace simulator {

/// How often each fault strikes, per thousand. Zero everywhere is a camera without faults.
struct FaultSettings {
  uint32_t loss_permille = 0;  ///< stream packets lost; resent packets are drawn for on their own
  uint32_t late_permille = 0;  ///< stream packets held back for `late_ms`
  uint32_t late_ms = 20;
  uint32_t duplicate_permille = 0;     ///< stream packets sent twice
  uint32_t reorder_permille = 0;       ///< stream packets sent after their successor
  uint32_t drop_leader_permille = 0;   ///< frames whose leader is lost
  uint32_t drop_trailer_permille = 0;  ///< frames whose trailer is lost
  uint32_t short_packet_permille = 0;  ///< payload packets cut to 12 bytes of data, with a valid header
  uint32_t gvcp_loss_permille = 0;     ///< commands ignored as if they had been lost on the way
  uint32_t ack_loss_permille = 0;      ///< commands executed whose answer is lost
  uint32_t slow_answer_ms = 0;         ///< writes are answered by PENDING_ACK at once and for good this much later
  bool ignore_heartbeat = false;       ///< the owner's commands no longer keep its control alive
};

/// A fault with a number (or two) that options and console commands set; rows of faultKnobs().
struct FaultKnob {
  std::string_view name;       ///< as a command; "--" in front makes it an option
  std::string_view arguments;  ///< "PERMILLE" or "PERMILLE MS"
  std::string_view help;
  uint32_t FaultSettings::*first;
  uint32_t first_maximum;
  uint32_t FaultSettings::*second = nullptr;  ///< null where the fault takes one number
  uint32_t second_maximum = 0;
};

constexpr std::size_t kFaultKnobCount = 10;
const std::array<FaultKnob, kFaultKnobCount>& faultKnobs();

/// The faults of one camera. Every member may be called from any thread.
class Faults {
 public:
  Faults(const FaultSettings& settings, uint64_t seed);

  FaultSettings settings() const;
  void set(const FaultSettings& settings);

  /// True with a chance of `permille` in a thousand, from the seeded generator; 0 draws nothing.
  bool strikes(uint32_t permille);

  /// No answers and no stream for `duration_ms` from now; commands that arrive meanwhile are lost.
  void freeze(uint32_t duration_ms);
  bool frozen() const;

  /// The camera is gone from the network as if unplugged. It comes back without control, stream and open port.
  void vanish();
  void vanish(uint32_t duration_ms);
  void comeBack();
  bool vanished() const;

  /// It vanishes behind its answer to the command with which `counter` reaches `count`, counted since its construction.
  /// One at a time; comeBack() calls it off.
  void vanishAt(Counter counter, uint64_t count);
  /// For the camera, behind each command that it has answered.
  void commandAnswered(const StatisticsBoard& statistics);

  /// Neither frozen nor vanished.
  bool present() const { return !frozen() && !vanished(); }

 private:
  static constexpr uint64_t kNoCount = UINT64_MAX;

  mutable std::mutex mutex_;
  FaultSettings settings_;
  std::mt19937_64 generator_;
  Counter vanish_counter_ = Counter::Count;
  std::atomic<uint64_t> vanish_count_{kNoCount};  // Read without the mutex by a camera that nobody waits to see vanish.
  std::atomic<uint64_t> frozen_until_ns_{0};
  std::atomic<uint64_t> vanished_until_ns_{0};
};

}  // namespace simulator
