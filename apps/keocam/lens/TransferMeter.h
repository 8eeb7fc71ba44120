// How far a change of lenses is, how fast it goes, and how long it will still take.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "calibration/LensChange.h"

namespace keocam::cli {

struct TransferView {
  SffcTable table = SffcTable::Low;
  TransferPhase phase = TransferPhase::Erasing;
  double fraction = 0.0;      ///< of the phase, 0 to 1
  double rate_bytes_s = 0.0;  ///< of the phase up to now; 0 while there is none
  double left_s = 0.0;        ///< of everything
};

/// The time is an argument and must not run backwards.
class TransferMeter {
 public:
  TransferMeter(uint32_t table_bytes, Verification verification);

  /// Of everything, before it begins: at the core's 57600 baud.
  double expected_s() const;

  TransferView note(const TransferProgress& progress, int64_t now_ms);

 private:
  struct Step {
    SffcTable table;
    TransferPhase phase;
  };

  double secondsFor(TransferPhase phase, double bytes) const;

  uint32_t table_bytes_;
  std::vector<Step> steps_;
  std::array<double, 3> speeds_bytes_s_;  // by phase: as measured, before that as usual
  std::size_t step_ = 0;
  bool begun_ = false;
  int64_t step_begin_ms_ = 0;
};

}  // namespace keocam::cli
