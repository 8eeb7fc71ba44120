// The system clock as the frame limit of slow cameras reads it.
#pragma once

#include <chrono>
#include <cstdint>

namespace keocam {

/// Milliseconds since 1970, cut, not rounded.
inline int64_t systemClock_ms() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count() / 1'000'000;
}

}  // namespace keocam
