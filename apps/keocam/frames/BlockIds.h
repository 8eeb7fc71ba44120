// Counts missing frames by the numbers that the device gives its frames.
#pragma once

#include <cstdint>
#include <optional>

namespace keocam::cli {

/// Fed with the number of every frame received, in the order of arrival. Numbers run from 1 to 65535 and then from 1
/// again; a device with extended numbers goes on beyond 65535. What was sent before the first frame received cannot be
/// known and is not counted.
class BlockIds {
 public:
  void note(uint64_t block_id);

  uint64_t missing() const { return missing_; }

 private:
  std::optional<uint64_t> last_;
  uint64_t missing_ = 0;
};

}  // namespace keocam::cli
