#include "simulator/FrameHistory.h"

#include <algorithm>

namespace simulator {

void FrameHistory::add(std::shared_ptr<const StreamFrame> frame) {
  const std::lock_guard<std::mutex> lock(mutex_);
  frames_.push_back(std::move(frame));
  if (frames_.size() > kFrames) frames_.pop_front();
}

void FrameHistory::clear() {
  const std::lock_guard<std::mutex> lock(mutex_);
  frames_.clear();
}

std::shared_ptr<const StreamFrame> FrameHistory::find(uint64_t block_id) const {
  const std::lock_guard<std::mutex> lock(mutex_);
  const auto found = std::find_if(frames_.rbegin(), frames_.rend(),
                                  [block_id](const auto& frame) { return frame->block_id == block_id; });
  return found == frames_.rend() ? nullptr : *found;
}

}  // namespace simulator
