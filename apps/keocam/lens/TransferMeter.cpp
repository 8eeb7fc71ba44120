#include "apps/keocam/lens/TransferMeter.h"

#include <algorithm>

namespace keocam::cli {
namespace {

// A piece of 128 bytes makes 152 on the line, back and forth, at 5760 a second, and needs some network round trips; a
// block of 128 KiB takes a second and its answer.
constexpr std::array<double, 3> kUsualSpeeds_bytes_s = {110'000.0, 4'500.0, 4'500.0};

// Less says nothing about what is to come.
constexpr int64_t kLeastMeasured_ms = 2'000;

// The flat-field correction at the end.
constexpr double kEnd_s = 2.0;

}  // namespace

TransferMeter::TransferMeter(uint32_t table_bytes, Verification verification)
    : table_bytes_(table_bytes), speeds_bytes_s_(kUsualSpeeds_bytes_s) {
  for (const SffcTable table : {SffcTable::Low, SffcTable::High}) {
    steps_.push_back({table, TransferPhase::Erasing});
    steps_.push_back({table, TransferPhase::Writing});
    if (verification == Verification::ReadBack) steps_.push_back({table, TransferPhase::Verifying});
  }
}

double TransferMeter::expected_s() const {
  double seconds = kEnd_s;
  for (const Step& step : steps_) seconds += secondsFor(step.phase, table_bytes_);
  return seconds;
}

TransferView TransferMeter::note(const TransferProgress& progress, int64_t now_ms) {
  const auto same = [&progress](const Step& step) {
    return step.table == progress.table && step.phase == progress.phase;
  };
  const auto found = std::find_if(steps_.begin(), steps_.end(), same);
  const auto step = static_cast<std::size_t>(found - steps_.begin());
  if (!begun_ || step != step_) {
    begun_ = true;
    step_ = step;
    step_begin_ms_ = now_ms;
  }
  TransferView view;
  view.table = progress.table;
  view.phase = progress.phase;
  view.fraction = progress.total_bytes > 0 ? static_cast<double>(progress.done_bytes) / progress.total_bytes : 1.0;
  const int64_t elapsed_ms = now_ms - step_begin_ms_;
  if (elapsed_ms > 0) view.rate_bytes_s = progress.done_bytes * 1000.0 / static_cast<double>(elapsed_ms);
  if (elapsed_ms >= kLeastMeasured_ms && progress.done_bytes > 0) {
    speeds_bytes_s_[static_cast<std::size_t>(progress.phase)] = view.rate_bytes_s;
  }
  view.left_s = kEnd_s + secondsFor(progress.phase, static_cast<double>(table_bytes_) - progress.done_bytes);
  for (std::size_t later = step + 1; later < steps_.size(); ++later) {
    view.left_s += secondsFor(steps_[later].phase, table_bytes_);
  }
  return view;
}

double TransferMeter::secondsFor(TransferPhase phase, double bytes) const {
  return std::max(bytes, 0.0) / speeds_bytes_s_[static_cast<std::size_t>(phase)];
}

}  // namespace keocam::cli
