// When a core that was reset is back.
#pragma once

#include <cstdint>

namespace keocam::cli {

/// Told of every question after the reset, says whether to ask on. A core may still answer while it goes down, so an
/// answer counts once the core has been silent, or once it has gone on answering for longer than that takes.
class ResetWatch {
 public:
  static constexpr int64_t kLongest_ms = 10'000;
  static constexpr int64_t kGoingDown_ms = 3'000;

  enum class State { Waiting, Back, GivenUp };

  /// `since_reset_ms` is the time of the question's outcome and must not run backwards.
  State note(bool answered, int64_t since_reset_ms);

 private:
  bool was_silent_ = false;
};

}  // namespace keocam::cli
