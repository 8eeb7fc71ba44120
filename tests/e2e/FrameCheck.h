// Whether received frames are those that the simulated camera sent: every one, once, in order, byte for byte.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "camera/Camera.h"
#include "simulator/Scene.h"
#include "simulator/core/ThermalCore.h"

namespace e2e {

class FrameCheck {
 public:
  /// `core` is the one that the camera has, if any.
  explicit FrameCheck(const simulator::SceneSettings& settings,
                      std::shared_ptr<const simulator::ThermalCore> core = nullptr);

  /// Compares the frame that `camera` holds with the scene, and its number with the one before.
  testing::AssertionResult check(const Camera& camera);

  uint64_t framesChecked() const { return frames_checked_; }

 private:
  std::vector<uint16_t> expectedPicture(uint64_t block_id) const;

  simulator::Scene scene_;
  std::shared_ptr<const simulator::ThermalCore> core_;
  uint64_t frames_checked_ = 0;
  uint64_t last_block_id_ = 0;
};

/// Retrieves `count` frames and checks each; the first one that is missing or wrong ends it with a failure.
testing::AssertionResult receiveAndCheck(Camera& camera, FrameCheck& check, uint64_t count);

}  // namespace e2e
