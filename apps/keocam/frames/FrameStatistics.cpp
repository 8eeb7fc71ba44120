#include "apps/keocam/frames/FrameStatistics.h"

#include <algorithm>

namespace keocam::cli {
namespace {

constexpr double kNanosecondsPerSecond = 1e9;

// `intervals` frame times lie between the two arrivals. Rates are taken between arrivals, not between the ends of a
// period: a period that happens to hold one frame more is not a faster stream.
std::optional<double> rate(uint64_t intervals, std::optional<int64_t> from_ns, std::optional<int64_t> to_ns) {
  if (intervals == 0 || !from_ns || !to_ns || *to_ns <= *from_ns) return std::nullopt;
  return static_cast<double>(intervals) * kNanosecondsPerSecond / static_cast<double>(*to_ns - *from_ns);
}

void count(StreamPeriod& period, const std::optional<RawStatistics>& raw) {
  ++period.frames;
  if (raw) period.raw.add(*raw);
}

}  // namespace

void FrameStatistics::addFrame(uint64_t block_id, int64_t arrival_ns, const std::optional<RawStatistics>& raw) {
  block_ids_.note(block_id);
  count(total_, raw);
  count(period_, raw);
  if (!first_arrival_ns_) first_arrival_ns_ = arrival_ns;
  last_arrival_ns_ = arrival_ns;
}

void FrameStatistics::setGivenUp(uint64_t frames) { given_up_ = std::max(given_up_, frames); }

// A frame given up by the receiver also leaves a gap in the numbers, except before the first and after the last frame
// received. So the two counts overlap, and the larger one is the loss.
uint64_t FrameStatistics::framesLost() const { return std::max(block_ids_.missing(), given_up_); }

StreamPeriod FrameStatistics::endPeriod() {
  StreamPeriod ended = period_;
  const uint64_t lost = framesLost();
  ended.frames_lost = lost - lost_before_period_;
  if (last_arrival_before_period_ns_) {
    ended.frames_per_second = rate(ended.frames, last_arrival_before_period_ns_, last_arrival_ns_);
  } else if (ended.frames > 0) {
    ended.frames_per_second = rate(ended.frames - 1, first_arrival_ns_, last_arrival_ns_);
  }
  period_ = {};
  lost_before_period_ = lost;
  last_arrival_before_period_ns_ = last_arrival_ns_;
  return ended;
}

StreamPeriod FrameStatistics::total() const {
  StreamPeriod all = total_;
  all.frames_lost = framesLost();
  if (all.frames > 0) all.frames_per_second = rate(all.frames - 1, first_arrival_ns_, last_arrival_ns_);
  return all;
}

}  // namespace keocam::cli
