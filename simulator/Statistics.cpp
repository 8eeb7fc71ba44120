#include "simulator/Statistics.h"

namespace simulator {
namespace {

constexpr std::array<std::string_view, kCounterCount> kNames{"discovery",
                                                             "force-ip",
                                                             "read-register",
                                                             "write-register",
                                                             "read-memory",
                                                             "write-memory",
                                                             "packet-resend",
                                                             "unknown-command",
                                                             "malformed",
                                                             "nack",
                                                             "replay",
                                                             "pending-ack",
                                                             "heartbeat",
                                                             "control-taken",
                                                             "control-expired",
                                                             "ignored-command",
                                                             "lost-ack",
                                                             "frames",
                                                             "stream-packets",
                                                             "resent-packets",
                                                             "resend-unavailable",
                                                             "dropped-packets",
                                                             "late-packets",
                                                             "duplicated-packets",
                                                             "reordered-packets",
                                                             "short-packets",
                                                             "test-packets",
                                                             "send-errors",
                                                             "uart-from-host",
                                                             "uart-to-host",
                                                             "uart-overflow"};

static_assert(!kNames.back().empty(), "every counter has a name");

}  // namespace

std::string_view counterName(Counter counter) { return kNames[static_cast<std::size_t>(counter)]; }

Statistics StatisticsBoard::snapshot() const {
  Statistics statistics;
  for (std::size_t i = 0; i < kCounterCount; ++i) {
    statistics.values_[i] = values_[i].load(std::memory_order_relaxed);
  }
  return statistics;
}

}  // namespace simulator
