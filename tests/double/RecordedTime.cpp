#include "tests/double/RecordedTime.h"

#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

#include <atomic>
#include <string>

#include "tests/double/EventLog.h"

namespace {

std::atomic<bool> recording{false};
std::atomic<int64_t> clock_ns{0};

void record(const std::string& event, int64_t span_ns) {
  scripted::eventLog().add(event);
  clock_ns += span_ns;
}

int reallySleep(const timespec* span, timespec* rest) {
  return static_cast<int>(syscall(SYS_clock_nanosleep, CLOCK_REALTIME, 0, span, rest));
}

int64_t nanoseconds(const timespec& span) { return int64_t{span.tv_sec} * 1'000'000'000 + span.tv_nsec; }

}  // namespace

namespace scripted {

RecordedTime::RecordedTime(int64_t start_ns) {
  clock_ns = start_ns;
  recording = true;
}

RecordedTime::~RecordedTime() { recording = false; }

int64_t RecordedTime::now_ns() const { return clock_ns; }

void passTime_ms(int64_t span_ms) { clock_ns += span_ms * 1'000'000; }

}  // namespace scripted

// The program's own definitions take the place of the C library's for everything linked into it.
extern "C" {

unsigned int sleep(unsigned int seconds) {
  if (recording) {
    record("sleep " + std::to_string(seconds) + " s", int64_t{seconds} * 1'000'000'000);
    return 0;
  }
  const timespec span{static_cast<time_t>(seconds), 0};
  reallySleep(&span, nullptr);
  return 0;
}

int usleep(useconds_t microseconds) {
  if (recording) {
    record("usleep " + std::to_string(microseconds) + " us", int64_t{microseconds} * 1'000);
    return 0;
  }
  const timespec span{static_cast<time_t>(microseconds / 1'000'000),
                      static_cast<long>(microseconds % 1'000'000) * 1'000};
  return reallySleep(&span, nullptr);
}

int nanosleep(const timespec* span, timespec* rest) {
  if (!recording) return reallySleep(span, rest);
  record("nanosleep " + std::to_string(nanoseconds(*span)) + " ns", nanoseconds(*span));
  return 0;
}

time_t time(time_t* result) noexcept {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  if (result != nullptr) *result = now.tv_sec;
  return now.tv_sec;
}

int clock_gettime(clockid_t clock, timespec* now) noexcept {
  if (!recording || clock != CLOCK_REALTIME) return static_cast<int>(syscall(SYS_clock_gettime, clock, now));
  now->tv_sec = clock_ns / 1'000'000'000;
  now->tv_nsec = clock_ns % 1'000'000'000;
  return 0;
}

}  // extern "C"
