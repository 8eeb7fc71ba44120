// What a core has received and answered, for tests and for people.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/core/CoreFrame.h"
#include "simulator/core/FrameDecoder.h"

namespace simulator {

struct CoreLogEntry {
  uint64_t time_ns = 0;  ///< of the core's clock
  Verdict verdict = Verdict::Noise;
  Bytes received;                    ///< as it arrived at the core
  std::optional<CoreStatus> status;  ///< what the core answered; empty where it answers nothing
  Bytes sent;                        ///< what left the core, faults included

  /// The frame's function; empty where nothing like a frame came.
  std::optional<uint8_t> function() const;
};

std::string_view verdictName(Verdict verdict);

/// One line without its end: seconds since `start_ns`, bytes in hex, what they were, the answer and its status.
std::string describe(const CoreLogEntry& entry, uint64_t start_ns);

/// Keeps the last entries. Not thread-safe.
class CoreLog {
 public:
  explicit CoreLog(std::size_t entries) : limit_(entries) {}

  void add(CoreLogEntry entry);
  void clear() { entries_.clear(); }
  std::vector<CoreLogEntry> entries() const { return {entries_.begin(), entries_.end()}; }

 private:
  std::size_t limit_;
  std::deque<CoreLogEntry> entries_;
};

}  // namespace simulator
