#include "apps/keocam/StopSignal.h"

namespace keocam::cli {
namespace {

struct HandledSignal {
  int number;
  unsigned int flags;
};

constexpr HandledSignal kHandled[] = {
    {SIGINT, SA_RESETHAND},
    {SIGTERM, SA_RESETHAND},
    {SIGHUP, SA_RESETHAND},
    // Comes once for each line written, so it must not fall back to its deadly default.
    {SIGPIPE, 0},
};

volatile sig_atomic_t stop_requested = 0;

void requestStop(int /*signal*/) { stop_requested = 1; }

}  // namespace

StopSignal::StopSignal() {
  static_assert(sizeof kHandled / sizeof kHandled[0] == kSignals);
  stop_requested = 0;
  for (std::size_t i = 0; i < kSignals; ++i) {
    struct sigaction action {};
    action.sa_handler = requestStop;
    action.sa_flags = static_cast<int>(kHandled[i].flags);
    sigemptyset(&action.sa_mask);
    sigaction(kHandled[i].number, &action, &before_[i]);
  }
}

StopSignal::~StopSignal() {
  for (std::size_t i = 0; i < kSignals; ++i) sigaction(kHandled[i].number, &before_[i], nullptr);
}

bool StopSignal::requested() const { return stop_requested != 0; }

}  // namespace keocam::cli
