// Frames of every sensor that the cameras come with.
#include <gtest/gtest.h>

#include <string>

#include "tests/e2e/FrameCheck.h"
#include "tests/e2e/StreamingCamera.h"

namespace {

using simulator::SimulatedCamera;

struct SizeCase {
  simulator::ImageSize sensor;
  const char* name;
};

class SensorSizes : public testing::TestWithParam<SizeCase> {};

TEST_P(SensorSizes, ThirtyFrames_AreComplete) {
  simulator::CameraOptions options = e2e::cameraOptions(0, 60.0);
  options.sensor = GetParam().sensor;
  const SimulatedCamera simulated(options);
  CameraCenter center("");
  Camera& camera = e2e::cameraOf(center, options.serial);
  const e2e::Acquisition acquisition(camera);
  e2e::FrameCheck check(simulated.sceneSettings());
  EXPECT_TRUE(e2e::receiveAndCheck(camera, check, 30));
}

INSTANTIATE_TEST_SUITE_P(Sensors, SensorSizes,
                         testing::Values(SizeCase{{640, 512}, "640x512"}, SizeCase{{336, 256}, "336x256"},
                                         SizeCase{{320, 256}, "320x256"}, SizeCase{{160, 128}, "160x128"}),
                         [](const auto& sensor) { return std::string(sensor.param.name); });

}  // namespace
