// Start-ups that are repeated, and that meet a silent core.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <thread>

#include "serial/CameraSerialSettings.h"
#include "simulator/core/CoreOptionsFor.h"
#include "simulator/core/ThermalCore.h"
#include "tests/e2e/FrameCheck.h"
#include "tests/e2e/StreamingCamera.h"

namespace {

using namespace std::chrono_literals;
using simulator::CoreFault;
using Clock = std::chrono::steady_clock;

std::ptrdiff_t entriesOf(const char* folder) {
  return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
}

// A thread that has been joined stays in the list until the kernel has cleared it away; one left running stays for
// good.
testing::AssertionResult fallsTo(std::ptrdiff_t limit, const char* folder) {
  const auto end = Clock::now() + 5s;
  std::ptrdiff_t entries = entriesOf(folder);
  while (entries > limit && Clock::now() < end) {
    std::this_thread::sleep_for(10ms);
    entries = entriesOf(folder);
  }
  if (entries <= limit) return testing::AssertionSuccess();
  return testing::AssertionFailure() << folder << " has " << entries << " entries, at most " << limit << " expected";
}

simulator::CameraOptions smallCamera() {
  simulator::CameraOptions options = e2e::cameraOptions(0, 50.0);
  options.sensor = {160, 128};
  return e2e::withFastCore(options);
}

class Reconnection : public testing::Test {
 protected:
  ~Reconnection() override { e2e::disconnect(camera_); }

  testing::AssertionResult streams() {
    camera_.StartAcquisition();
    e2e::FrameCheck check(simulated_.sceneSettings(), simulated_.options().core);
    const testing::AssertionResult result = e2e::receiveAndCheck(camera_, check, 5);
    camera_.StopAcquisition();
    return result;
  }
  simulator::ThermalCore& simulatedCore() { return *simulated_.options().core; }

  simulator::SimulatedCamera simulated_{smallCamera()};
  CameraCenter center_{""};
  Camera& camera_ = e2e::cameraOf(center_, simulated_.options().serial);
};

TEST_F(Reconnection, TwentyTimes_NeitherDescriptorsNorThreadsPileUp) {
  constexpr int kRounds = 20;
  constexpr int kWarmUp = 2;  // what is made once for the process
  std::ptrdiff_t descriptors = 0;
  std::ptrdiff_t threads = 0;
  for (int round = 0; round < kRounds; ++round) {
    ASSERT_EQ(camera_.Connect(), 0) << "round " << round;
    EXPECT_TRUE(camera_.serialSettings->GetIsSupported());
    EXPECT_TRUE(streams()) << "round " << round;
    e2e::disconnect(camera_);
    if (round < kWarmUp) {
      descriptors = std::max(descriptors, entriesOf("/proc/self/fd"));
      threads = std::max(threads, entriesOf("/proc/self/task"));
    }
  }
  EXPECT_TRUE(fallsTo(descriptors, "/proc/self/fd"));
  EXPECT_TRUE(fallsTo(threads, "/proc/self/task"));
}

TEST_F(Reconnection, SilentCore_IsAConnectionWithFramesButWithoutIdentity_AndASecondStartUpMendsIt) {
  simulatedCore().setFault(CoreFault::Deaf, 1000);
  const auto start = Clock::now();
  ASSERT_EQ(camera_.Connect(), 0);
  EXPECT_GE(Clock::now() - start, 5s) << "ten times half a second";
  EXPECT_FALSE(camera_.serialSettings->GetIsSupported());
  EXPECT_EQ(camera_.serialSettings->GetCameraPartNumber(), "");
  EXPECT_TRUE(streams());

  simulatedCore().clearFaults();
  EXPECT_EQ(camera_.serialSettings->SetDefault(), 0);
  EXPECT_EQ(camera_.serialSettings->GetModel(), "KEO_160");
}

TEST_F(Reconnection, CoreThatWakesLate_IsWaitedFor) {
  simulatedCore().setFault(CoreFault::Deaf, 1000, 4);
  ASSERT_EQ(camera_.Connect(), 0);
  EXPECT_EQ(camera_.serialSettings->GetModel(), "KEO_160");
  EXPECT_TRUE(streams());
}

TEST_F(Reconnection, CoreThatFallsSilentHalfWay_IsIdentifiedAndConnected) {
  simulator::CoreFaultSetting deaf;
  deaf.value = 1000;
  deaf.after = 3;
  simulatedCore().setFault(CoreFault::Deaf, deaf);
  ASSERT_EQ(camera_.Connect(), 0);
  EXPECT_EQ(camera_.serialSettings->GetModel(), "KEO_160");
  EXPECT_EQ(simulatedCore().word(18, simulator::kXpBusMode), 0) << "it did not hear";
  EXPECT_TRUE(streams());
}

TEST(RealBaudRate, StartUp_TakesItsWaitsAndLittleMore) {
  simulator::CameraOptions options = e2e::cameraOptions(0, 50.0);
  options.core = std::make_shared<simulator::ThermalCore>(simulator::coreOptionsFor(options));
  const simulator::SimulatedCamera simulated(options);
  CameraCenter center("");
  Camera& camera = e2e::cameraOf(center, options.serial);
  const auto start = Clock::now();
  const e2e::StartedConnection connection(camera);
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  RecordProperty("seconds", std::to_string(seconds));
  EXPECT_GE(seconds, 3.0);
  EXPECT_LT(seconds, 8.0) << "what the header promises is 4";
  EXPECT_EQ(camera.serialSettings->GetModel(), "KEO_640");
}

}  // namespace
