// What happened in a stream: frames, their rate, loss, and raw values, per period and in all.
#pragma once

#include <cstdint>
#include <optional>

#include "apps/keocam/frames/BlockIds.h"
#include "apps/keocam/frames/RawStatistics.h"

namespace keocam::cli {

/// A stretch of a stream.
struct StreamPeriod {
  uint64_t frames = 0;
  uint64_t frames_lost = 0;
  std::optional<double> frames_per_second;  ///< nothing where fewer than two arrivals are known
  RawStatistics raw;
};

/// The caller brings every time, in nanoseconds of a steady clock, so that nothing here waits or asks.
class FrameStatistics {
 public:
  /// A frame arrived at `arrival_ns`; `raw` is empty if its values are not understood.
  void addFrame(uint64_t block_id, int64_t arrival_ns, const std::optional<RawStatistics>& raw);

  /// The receiver has given up `frames` frames in all since the stream began.
  void setGivenUp(uint64_t frames);

  /// What has been added since the last call, or since the beginning.
  StreamPeriod endPeriod();

  /// Since the beginning.
  StreamPeriod total() const;

  uint64_t missingBlockIds() const { return block_ids_.missing(); }

 private:
  uint64_t framesLost() const;

  BlockIds block_ids_;
  uint64_t given_up_ = 0;
  StreamPeriod total_;
  StreamPeriod period_;
  uint64_t lost_before_period_ = 0;
  std::optional<int64_t> first_arrival_ns_;
  std::optional<int64_t> last_arrival_ns_;
  std::optional<int64_t> last_arrival_before_period_ns_;
};

}  // namespace keocam::cli
