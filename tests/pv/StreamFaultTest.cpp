// Frames that arrive damaged or not at all.
#include <gtest/gtest.h>

#include <cstring>

#include "tests/pv/TestCamera.h"

namespace {

using pv_test::Code;

// A camera of many packets a frame, since loopback carries a small frame in few.
simulator::CameraOptions largeCamera() {
  auto options = pv_test::smallCamera();
  options.sensor = {640, 512};
  options.frame_rate_hz = 20;
  return options;
}

// How many of `count` frames were retrieved, each compared with what the camera saw.
int retrieveAndCompare(pv_test::Connection& connection, const simulator::SimulatedCamera& camera, int count) {
  const simulator::Scene scene(camera.sceneSettings());
  int good = 0;
  for (int frame = 0; frame < count; ++frame) {
    PvBuffer* buffer = nullptr;
    PvResult fared;
    if (!connection.pipeline->RetrieveNextBuffer(&buffer, 1000, &fared).IsOK()) continue;
    const auto details = keocam::detailsOf(*buffer);
    const auto expected = scene.render(details.width, details.height, details.block_id);
    EXPECT_EQ(details.size, expected.size() * sizeof expected[0]);
    EXPECT_EQ(std::memcmp(buffer->GetDataPointer(), expected.data(), details.size), 0) << details.block_id;
    EXPECT_TRUE(connection.pipeline->ReleaseBuffer(buffer).IsOK());
    ++good;
  }
  return good;
}

TEST(StreamFaults, OnePercentLost_IsRepairedByResend) {
  auto options = largeCamera();
  options.faults.loss_permille = 10;
  simulator::SimulatedCamera camera(options);
  pv_test::Connection connection(options);
  ASSERT_TRUE(connection.ok());
  ASSERT_TRUE(connection.start().IsOK());
  EXPECT_EQ(retrieveAndCompare(connection, camera, 40), 40);
  EXPECT_TRUE(connection.stop().IsOK());
  const auto statistics = connection.statistics();
  EXPECT_GT(camera.statistics()[simulator::Counter::DroppedPacket], 0U);
  EXPECT_GT(statistics.packets_resent, 0U);
  EXPECT_GT(statistics.resend_requests, 0U);
  EXPECT_LE(statistics.frames_incomplete, 2U);
}

TEST(StreamFaults, LateDuplicatedAndReorderedPackets_DoNoHarm) {
  auto options = largeCamera();
  options.faults.late_permille = 5;
  options.faults.late_ms = 10;
  options.faults.duplicate_permille = 20;
  options.faults.reorder_permille = 20;
  simulator::SimulatedCamera camera(options);
  pv_test::Connection connection(options);
  ASSERT_TRUE(connection.ok());
  ASSERT_TRUE(connection.start().IsOK());
  EXPECT_EQ(retrieveAndCompare(connection, camera, 20), 20);
}

TEST(StreamFaults, ShortPackets_AreNeverHandedOut) {
  auto options = largeCamera();
  simulator::SimulatedCamera camera(options);
  pv_test::Connection connection(options);
  ASSERT_TRUE(connection.ok());
  ASSERT_TRUE(connection.start().IsOK());
  EXPECT_GT(retrieveAndCompare(connection, camera, 2), 0);
  simulator::FaultSettings faults;
  faults.short_packet_permille = 5;
  camera.faults().set(faults);
  const int good = retrieveAndCompare(connection, camera, 20);
  EXPECT_GT(camera.statistics()[simulator::Counter::ShortPacket], 0U);
  EXPECT_TRUE(connection.stop().IsOK());
  const auto statistics = connection.statistics();
  EXPECT_GT(statistics.frames_incomplete, 0U);
  EXPECT_GE(statistics.frames_complete, static_cast<uint64_t>(good));
}

TEST(StreamFaults, OnlyIncompleteFrames_ArePassedOverWithinTheTimeOut) {
  auto options = largeCamera();
  simulator::SimulatedCamera camera(options);
  pv_test::Connection connection(options);
  ASSERT_TRUE(connection.ok());
  simulator::FaultSettings faults;
  faults.short_packet_permille = 1000;
  camera.faults().set(faults);
  ASSERT_TRUE(connection.start().IsOK());
  PvBuffer* buffer = nullptr;
  PvResult fared;
  PvResult result;
  const double took_ms =
      pv_test::durationOf([&] { result = connection.pipeline->RetrieveNextBuffer(&buffer, 700, &fared); });
  EXPECT_EQ(result.GetCode(), Code::Timeout);
  EXPECT_EQ(buffer, nullptr);
  EXPECT_GE(took_ms, 699);
  EXPECT_LT(took_ms, 720 + pv_test::kScheduling_ms);
  EXPECT_GT(connection.statistics().frames_incomplete, 2U);
  camera.faults().set({});
  EXPECT_GT(retrieveAndCompare(connection, camera, 3), 1);
}

}  // namespace
