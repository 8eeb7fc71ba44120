// A camera's states in real life: connected, acquiring, stopped, in use elsewhere.
#include <gtest/gtest.h>

#include <chrono>

#include "serial/CameraSerialSettings.h"
#include "tests/e2e/FrameCheck.h"
#include "tests/e2e/StreamingCamera.h"

namespace {

using simulator::SimulatedCamera;
using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

class Lifecycle : public testing::Test {
 protected:
  ~Lifecycle() override { delete camera_.serialSettings; }

  /// As an application that connects often does it: the library does not delete the core's object.
  int connect() {
    delete camera_.serialSettings;
    camera_.serialSettings = nullptr;
    return camera_.Connect();
  }

  SimulatedCamera simulated_{e2e::withFastCore(e2e::cameraOptions(0, 30.0))};
  CameraCenter center_{""};
  Camera& camera_ = e2e::cameraOf(center_, simulated_.options().serial);
};

TEST_F(Lifecycle, ConnectStartStopDisconnect_TheDeviceFollows) {
  EXPECT_EQ(camera_.GetStatus(), "Disconnected");
  ASSERT_EQ(connect(), 0);
  EXPECT_EQ(camera_.GetStatus(), "Connected");
  EXPECT_TRUE(simulated_.controlled());
  EXPECT_FALSE(simulated_.streaming());

  camera_.StartAcquisition();
  EXPECT_EQ(camera_.GetStatus(), "Acquiring");
  EXPECT_TRUE(simulated_.streaming());
  EXPECT_NE(camera_.RetreiveBuffer(), nullptr);
  camera_.ReleaseBuffer();

  camera_.StopAcquisition();
  EXPECT_EQ(camera_.GetStatus(), "Connected");
  EXPECT_FALSE(simulated_.streaming());

  camera_.Disconnect();
  EXPECT_EQ(camera_.GetStatus(), "Disconnected");
  EXPECT_FALSE(simulated_.controlled());
}

TEST_F(Lifecycle, StopAndStartAgain_FramesGoOn) {
  ASSERT_EQ(connect(), 0);
  for (int round = 0; round < 3; ++round) {
    camera_.StartAcquisition();
    for (int i = 0; i < 5; ++i) {
      camera_.buffer = nullptr;
      ASSERT_NE(camera_.RetreiveBuffer(), nullptr) << "round " << round << ", frame " << i;
      camera_.ReleaseBuffer();
    }
    camera_.StopAcquisition();
  }
  camera_.Disconnect();
}

TEST_F(Lifecycle, ConnectAgainAfterDisconnect_Streams) {
  for (int round = 0; round < 3; ++round) {
    const e2e::StartedConnection connection(camera_);
    camera_.StartAcquisition();
    e2e::FrameCheck check(simulated_.sceneSettings(), simulated_.options().core);
    EXPECT_TRUE(e2e::receiveAndCheck(camera_, check, 10)) << "round " << round;
  }
}

TEST_F(Lifecycle, NoFrameBeforeAcquisition_RetreiveBufferGivesNullAfterASecond) {
  ASSERT_EQ(connect(), 0);
  camera_.pipeline->Start();
  const auto start = Clock::now();
  EXPECT_EQ(camera_.RetreiveBuffer(), nullptr);
  EXPECT_GE(secondsSince(start), 0.99);
  EXPECT_LT(secondsSince(start), 1.5);
  camera_.ReleaseBuffer();
  camera_.Disconnect();
}

TEST_F(Lifecycle, InUseByAnotherHost_ConnectFailsAndTheOtherKeepsIt) {
  simulated_.setOccupied(true);
  EXPECT_EQ(connect(), -1);
  EXPECT_EQ(camera_.device, nullptr);
  EXPECT_TRUE(simulated_.controlled());
  simulated_.setOccupied(false);
  EXPECT_EQ(connect(), 0);
  camera_.Disconnect();
}

TEST(SlowClass, FastDevice_HandsOutAboutTwentyFramesASecondAtMost) {
  simulator::CameraOptions options = e2e::withFastCore(e2e::cameraOptions(0, 60.0));
  options.serial = "KEOC1703";
  const SimulatedCamera simulated(options);
  CameraCenter center("");
  Camera& camera = e2e::cameraOf(center, options.serial);
  const e2e::StartedConnection connection(camera);
  camera.StartAcquisition();
  ASSERT_TRUE(camera.limitFrameRate);
  const auto start = Clock::now();
  for (int i = 0; i < 20; ++i) {
    camera.buffer = nullptr;
    ASSERT_NE(camera.RetreiveBuffer(), nullptr);
    camera.ReleaseBuffer();
  }
  // Frames that are always ready come in pairs, two per 100 ms.
  EXPECT_GE(secondsSince(start), 0.9);
}

}  // namespace
