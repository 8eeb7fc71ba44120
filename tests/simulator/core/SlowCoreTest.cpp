// Cameras with slow cores: the core's rate is the most that they send.
#include <gtest/gtest.h>

#include <cstring>

#include "TestHost.h"
#include "simulator/RegisterAddresses.h"
#include "simulator/SimulatedCamera.h"
#include "simulator/core/CoreOptionsFor.h"
#include "simulator/core/ModelCatalogue.h"

namespace {

using namespace simulator;

constexpr uint16_t kInvalidParameter = 0x8002;
constexpr uint64_t kMs = 1'000'000;

uint32_t floatBits(float value) {
  uint32_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

CameraOptions cameraWith(std::string_view id, double frame_rate_hz) {
  const CoreModel& model = *findModel(id);
  CameraOptions options;
  options.sensor = model.sensor;
  options.frame_rate_hz = frame_rate_hz;
  CoreOptions core = coreOptionsFor(options);
  core.identity = identityOf(model);
  options.core = std::make_shared<ThermalCore>(core);
  return options;
}

TEST(SlowCore, FrameRateAboveItsOwn_IsLoweredAndRefused) {
  for (const char* id : {"160-slow", "alt-73-slow"}) {
    const SimulatedCamera camera(cameraWith(id, 50));
    EXPECT_EQ(camera.options().frame_rate_hz, 9.0) << id;
    TestHost host("127.0.0.2");
    ASSERT_TRUE(host.takeControl());
    EXPECT_EQ(host.read(address::kAcquisitionFrameRate), floatBits(9)) << id;
    EXPECT_EQ(host.read(address::kAcquisitionFrameRateMax), floatBits(9)) << id;
    EXPECT_EQ(host.write(address::kAcquisitionFrameRate, floatBits(9.5F)), kInvalidParameter) << id;
    EXPECT_EQ(host.write(address::kAcquisitionFrameRate, floatBits(4)), 0) << id;
    EXPECT_EQ(host.write(address::kAcquisitionFrameRate, floatBits(9)), 0) << id;
  }
}

TEST(SlowCore, Frames_ComeAtItsPace) {
  const SimulatedCamera camera(cameraWith("160-slow", 50));
  TestHost host("127.0.0.2");
  ASSERT_TRUE(host.takeControl());
  ASSERT_TRUE(host.startStream());
  const auto first = host.nextFrame();
  ASSERT_TRUE(first);
  std::optional<ReceivedFrame> last = first;
  for (int i = 0; i < 3; ++i) {
    last = host.nextFrame();
    ASSERT_TRUE(last);
  }
  ASSERT_EQ(last->block_id, first->block_id + 3);
  // Three periods of 111 ms, less what the first one may have been late by; at 30 Hz they would be 100 ms.
  EXPECT_GE(last->timestamp_ns - first->timestamp_ns, 200 * kMs);
}

TEST(FastCore, FrameRate_IsTheCameras) {
  const SimulatedCamera camera(cameraWith("160-fast", 50));
  EXPECT_EQ(camera.options().frame_rate_hz, 50.0);
  TestHost host("127.0.0.2");
  ASSERT_TRUE(host.takeControl());
  EXPECT_EQ(host.read(address::kAcquisitionFrameRate), floatBits(50));
  EXPECT_EQ(host.write(address::kAcquisitionFrameRate, floatBits(1000)), 0);
  EXPECT_EQ(host.write(address::kAcquisitionFrameRate, floatBits(1000.5F)), kInvalidParameter);
}

}  // namespace
