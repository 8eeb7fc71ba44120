// Why a device could not be used: what is kept of it, and for how long.
#include "pv/aravis/LastFailures.h"

#include <gtest/gtest.h>

#include "pv/aravis/DeviceDetails.h"
#include "tests/pv/TestCamera.h"

namespace {

using pv_test::Code;

PvResult inUse(const std::string& text) { return {Code::InUse, PvString(text)}; }

TEST(LastFailures, Unknown_IsOk) { EXPECT_TRUE(keocam::notedFailure("192.0.2.250").IsOK()); }

TEST(LastFailures, EachDevice_HasItsOwnLatest) {
  keocam::noteOutcome("192.0.2.1", inUse("first"));
  keocam::noteOutcome("192.0.2.2", inUse("other"));
  keocam::noteOutcome("192.0.2.1", inUse("second"));
  EXPECT_EQ(pv_test::textOf(keocam::notedFailure("192.0.2.1")), "second");
  EXPECT_EQ(pv_test::textOf(keocam::notedFailure("192.0.2.2")), "other");
  keocam::noteOutcome("192.0.2.1", {});
  EXPECT_TRUE(keocam::notedFailure("192.0.2.1").IsOK());
}

TEST(LastFailures, ManyDevices_ForgetTheOldest) {
  keocam::noteOutcome("198.51.100.1", inUse("oldest"));
  for (int device = 0; device < 255; ++device) keocam::noteOutcome("d" + std::to_string(device), inUse("busy"));
  EXPECT_FALSE(keocam::notedFailure("198.51.100.1").IsOK());
  keocam::noteOutcome("d255", inUse("busy"));
  EXPECT_TRUE(keocam::notedFailure("198.51.100.1").IsOK());
  EXPECT_FALSE(keocam::notedFailure("d0").IsOK());
  for (int device = 0; device < 256; ++device) keocam::noteOutcome("d" + std::to_string(device), {});
}

TEST(LastFailureOf, ConnectingFails_TellsWhyUntilItSucceeds) {
  const auto options = pv_test::smallCamera();
  const auto info = pv_test::describe(options);
  EXPECT_EQ(PvDevice::CreateAndConnect(info.get(), nullptr), nullptr);
  EXPECT_EQ(keocam::lastFailureOf(*info).GetCode(), Code::NotConnected);

  simulator::SimulatedCamera camera(options);
  camera.setOccupied(true);
  EXPECT_EQ(PvDevice::CreateAndConnect(info.get(), nullptr), nullptr);
  EXPECT_EQ(keocam::lastFailureOf(*info).GetCode(), Code::InUse);

  camera.setOccupied(false);
  const pv_test::DevicePtr device(PvDevice::CreateAndConnect(info.get(), nullptr));
  ASSERT_TRUE(device);
  EXPECT_TRUE(keocam::lastFailureOf(*info).IsOK());
}

TEST(LastFailureOf, OpeningAStreamFails_TellsWhy) {
  const simulator::SimulatedCamera camera(pv_test::smallCamera());
  const pv_test::Connection connection(camera.options());
  ASSERT_TRUE(connection.ok());
  EXPECT_TRUE(keocam::lastFailureOf(*connection.info).IsOK());
  EXPECT_EQ(PvStream::CreateAndOpen(connection.info->GetConnectionID(), nullptr), nullptr);
  EXPECT_EQ(keocam::lastFailureOf(*connection.info).GetCode(), Code::InUse);
}

TEST(LastFailureOf, DeviceLost_TellsHow) {
  simulator::SimulatedCamera camera(pv_test::smallCamera());
  const pv_test::Connection connection(camera.options());
  ASSERT_TRUE(connection.ok());
  camera.setOccupied(true);
  ASSERT_TRUE(pv_test::eventually([&] { return !connection.device->IsConnected(); }, std::chrono::milliseconds(4000)));
  EXPECT_EQ(keocam::lastFailureOf(*connection.info).GetCode(), Code::NotConnected) << "as soon as the loss shows";
}

}  // namespace
