// Lost, late, doubled and swapped packets: every frame still arrives whole, by resend.
#include <gtest/gtest.h>

#include "pv/aravis/StreamDetails.h"
#include "tests/e2e/FrameCheck.h"
#include "tests/e2e/StreamingCamera.h"

namespace {

using simulator::Counter;
using simulator::SimulatedCamera;

class PacketLoss : public testing::Test {
 protected:
  /// Streams `frames` frames with these faults and expects each to be whole.
  void expectAllWhole(const simulator::FaultSettings& faults, uint64_t frames) {
    simulator::CameraOptions options = e2e::cameraOptions(0, 30.0);
    options.faults = faults;
    const SimulatedCamera simulated(options);
    CameraCenter center("");
    Camera& camera = e2e::cameraOf(center, options.serial);
    const e2e::Acquisition acquisition(camera);
    e2e::FrameCheck check(simulated.sceneSettings());
    EXPECT_TRUE(e2e::receiveAndCheck(camera, check, frames));
    EXPECT_EQ(keocam::statisticsOf(*camera.stream).frames_incomplete, 0u);
    struck_ = simulated.statistics();
  }

  simulator::Statistics struck_;
};

TEST_F(PacketLoss, OnePercentLost_AllFramesComplete) {
  simulator::FaultSettings faults;
  faults.loss_permille = 10;
  expectAllWhole(faults, 300);
  EXPECT_GT(struck_[Counter::DroppedPacket], 100u);
  EXPECT_GT(struck_[Counter::ResentPacket], 100u);
}

TEST_F(PacketLoss, LateDoubledAndSwapped_AllFramesComplete) {
  simulator::FaultSettings faults;
  faults.late_permille = 5;
  faults.late_ms = 5;
  faults.duplicate_permille = 5;
  faults.reorder_permille = 5;
  expectAllWhole(faults, 100);
  EXPECT_GT(struck_[Counter::LatePacket], 0u);
  EXPECT_GT(struck_[Counter::DuplicatedPacket], 0u);
  EXPECT_GT(struck_[Counter::ReorderedPacket], 0u);
}

}  // namespace
