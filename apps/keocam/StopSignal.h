// Ctrl-C and its relatives, as a request to stop instead of an end.
#pragma once

#include <signal.h>

#include <array>
#include <cstddef>

namespace keocam::cli {

/// While it lives, SIGINT, SIGTERM and SIGHUP only set a flag. A second one ends the program at once, for those who
/// cannot wait. Under nohup SIGHUP stays ignored. One at a time in a process.
class StopSignal {
 public:
  StopSignal();
  ~StopSignal();
  StopSignal(const StopSignal&) = delete;
  StopSignal& operator=(const StopSignal&) = delete;

  /// As if a signal had come.
  void request();
  bool requested() const;

 private:
  static constexpr std::size_t kSignals = 3;
  std::array<struct sigaction, kSignals> before_{};
};

}  // namespace keocam::cli
