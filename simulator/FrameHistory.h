// The last frames of a stream, kept for resend requests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>

#include "simulator/GvspPacket.h"

namespace simulator {

/// Thread-safe.
class FrameHistory {
 public:
  static constexpr std::size_t kFrames = 12;

  void add(std::shared_ptr<const StreamFrame> frame);
  void clear();

  /// Null when the block was never sent or is no longer kept.
  std::shared_ptr<const StreamFrame> find(uint64_t block_id) const;

 private:
  mutable std::mutex mutex_;
  std::deque<std::shared_ptr<const StreamFrame>> frames_;
};

}  // namespace simulator
