// How the last blocks' pictures came about, by block id.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>

#include "simulator/VideoSource.h"

namespace simulator {

/// Not thread-safe.
class VideoHistory {
 public:
  static constexpr std::size_t kBlocks = 512;

  void add(uint64_t block_id, const CoreVideo& video) {
    videos_.push_back({block_id, video});
    if (videos_.size() > kBlocks) videos_.pop_front();
  }

  /// The latest of this id, as ids begin again; empty when it never was or is no longer kept.
  std::optional<CoreVideo> find(uint64_t block_id) const {
    for (auto at = videos_.rbegin(); at != videos_.rend(); ++at) {
      if (at->block_id == block_id) return at->video;
    }
    return std::nullopt;
  }

 private:
  struct Shown {
    uint64_t block_id;
    CoreVideo video;
  };
  std::deque<Shown> videos_;
};

}  // namespace simulator
