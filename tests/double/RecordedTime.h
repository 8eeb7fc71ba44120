// The C library's waits and clocks, replaced in a unit-test program: waits are logged and take no time.
#pragma once

#include <cstdint>

namespace scripted {

/// While it lives, sleep, usleep and nanosleep log "sleep 1 s", "usleep 1000 us" and "nanosleep 70000000 ns" and
/// advance a clock of its own by as much, and time() and the system clock read that clock. Otherwise they do what they
/// always do.
class RecordedTime {
 public:
  explicit RecordedTime(int64_t start_ns);
  ~RecordedTime();
  RecordedTime(const RecordedTime&) = delete;
  RecordedTime& operator=(const RecordedTime&) = delete;

  int64_t now_ns() const;
};

/// Lets recorded time pass, or, with a negative span, sets the clock back.
void passTime_ms(int64_t span_ms);

}  // namespace scripted
