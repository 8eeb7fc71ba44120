// Shows the progress of a change of lenses as often as it is worth reading.
#pragma once

#include <cstdint>
#include <functional>
#include <ostream>

#include "apps/keocam/lens/TransferMeter.h"
#include "apps/keocam/terminal/ProgressLine.h"

namespace keocam::cli {

class TransferReporter {
 public:
  /// `out` and what `look` refers to must outlive it.
  TransferReporter(std::ostream& out, std::function<Terminal()> look, const TransferMeter& meter);

  /// On a terminal the bar, ten times a second; elsewhere a line at each phase's beginning, and one every ten seconds.
  void report(const TransferProgress& progress, int64_t now_ms);

  /// Ends the bar's line.
  void finish() { line_.finish(); }

 private:
  ProgressLine line_;
  std::function<Terminal()> look_;
  TransferMeter meter_;
  bool shown_ = false;
  TransferView last_shown_;
  int64_t last_shown_ms_ = 0;
};

}  // namespace keocam::cli
