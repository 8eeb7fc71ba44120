#include "apps/keocam/StopSignal.h"

namespace keocam::cli {
namespace {

struct HandledSignal {
  int number;
  unsigned int flags;
  bool stays_ignored;  // where the program was started with it ignored
};

constexpr HandledSignal kHandled[] = {
    // A shell starts background commands with it ignored; who sends it to one all the same means it.
    {SIGINT, SA_RESETHAND, false},
    {SIGTERM, SA_RESETHAND, false},
    // Ignored is what nohup asks for.
    {SIGHUP, SA_RESETHAND, true},
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
    if (kHandled[i].stays_ignored && before_[i].sa_handler == SIG_IGN) {
      sigaction(kHandled[i].number, &before_[i], nullptr);
    }
  }
}

StopSignal::~StopSignal() {
  for (std::size_t i = 0; i < kSignals; ++i) sigaction(kHandled[i].number, &before_[i], nullptr);
}

void StopSignal::request() { stop_requested = 1; }

bool StopSignal::requested() const { return stop_requested != 0; }

}  // namespace keocam::cli
