// The camera's one clock: the host's monotonic time, which is also its 1 GHz time stamp counter.
#pragma once

#include <chrono>
#include <cstdint>

namespace simulator {

constexpr uint64_t kNanosecondsPerMillisecond = 1'000'000;
constexpr uint64_t kNanosecondsPerSecond = 1'000'000'000;

/// A time that never comes.
constexpr uint64_t kNever = UINT64_MAX;

inline uint64_t monotonicNs() {
  return static_cast<uint64_t>(
      std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch())
          .count());
}

inline std::chrono::steady_clock::time_point timePoint(uint64_t monotonic_ns) {
  return std::chrono::steady_clock::time_point(std::chrono::nanoseconds(monotonic_ns));
}

}  // namespace simulator
