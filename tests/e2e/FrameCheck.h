// Whether received frames are those that the simulated camera sent: every one, once, in order, byte for byte.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "camera/Camera.h"
#include "simulator/Scene.h"

namespace e2e {

class FrameCheck {
 public:
  explicit FrameCheck(const simulator::SceneSettings& settings);

  /// Compares the frame that `camera` holds with the scene, and its number with the one before.
  testing::AssertionResult check(const Camera& camera);

  uint64_t framesChecked() const { return frames_checked_; }

 private:
  simulator::Scene scene_;
  uint64_t frames_checked_ = 0;
  uint64_t last_block_id_ = 0;
};

/// Retrieves `count` frames and checks each; the first one that is missing or wrong ends it with a failure.
testing::AssertionResult receiveAndCheck(Camera& camera, FrameCheck& check, uint64_t count);

}  // namespace e2e
