#include "apps/keocam/core/ResetWatch.h"

namespace keocam::cli {

ResetWatch::State ResetWatch::note(bool answered, int64_t since_reset_ms) {
  if (answered && (was_silent_ || since_reset_ms >= kGoingDown_ms)) return State::Back;
  if (!answered) was_silent_ = true;
  return since_reset_ms >= kLongest_ms ? State::GivenUp : State::Waiting;
}

}  // namespace keocam::cli
