// What becomes of calls when the device falls silent or is taken away.
#include <gtest/gtest.h>

#include <array>
#include <thread>

#include "PvDeviceSerialPort.h"
#include "pv/aravis/DeviceDetails.h"
#include "tests/pv/TestCamera.h"

namespace {

using pv_test::Code;
using std::chrono::milliseconds;

constexpr double kLongestCall_ms = 3000;
constexpr milliseconds kNoticed_ms(3000);

class LostDeviceTest : public testing::Test {
 protected:
  LostDeviceTest() : camera_(pv_test::smallCamera()), connection_(camera_.options()) {}

  void SetUp() override { ASSERT_TRUE(connection_.ok()); }

  bool lostSoon() {
    return pv_test::eventually([this] { return !connection_.device->IsConnected(); }, kNoticed_ms);
  }

  simulator::SimulatedCamera camera_;
  pv_test::Connection connection_;
};

TEST_F(LostDeviceTest, ShortSilence_DoesNotLoseTheConnection) {
  camera_.faults().freeze(900);
  std::this_thread::sleep_for(milliseconds(1500));
  EXPECT_TRUE(connection_.device->IsConnected());
  EXPECT_TRUE(connection_.features().SetIntegerValue("Width", 80).IsOK());
}

TEST_F(LostDeviceTest, Silence_LosesTheConnectionForGoodAndLaterCallsReturnAtOnce) {
  camera_.faults().freeze(4000);
  EXPECT_TRUE(lostSoon());
  std::this_thread::sleep_for(milliseconds(1500));
  EXPECT_FALSE(connection_.device->IsConnected());
  PvResult result;
  const double took_ms = pv_test::durationOf([&] { result = connection_.features().SetIntegerValue("Width", 80); });
  EXPECT_EQ(result.GetCode(), Code::NotConnected);
  EXPECT_LT(took_ms, 50 + pv_test::kScheduling_ms);
  EXPECT_EQ(connection_.execute("AcquisitionStart").GetCode(), Code::NotFound) << "an unknown feature stays unknown";
}

TEST_F(LostDeviceTest, SilenceDuringFeatureAccess_EndsTheCallInTime) {
  camera_.faults().vanish();
  PvResult result;
  EXPECT_LT(pv_test::durationOf([&] { result = connection_.features().SetIntegerValue("Width", 80); }),
            kLongestCall_ms);
  EXPECT_TRUE(result.GetCode() == Code::NotConnected || result.GetCode() == Code::Timeout) << pv_test::textOf(result);
  EXPECT_LT(pv_test::durationOf([&] { EXPECT_EQ(connection_.device->GetPayloadSize(), 0); }), kLongestCall_ms);
  EXPECT_LT(pv_test::durationOf([&] { EXPECT_FALSE(connection_.pipeline->Start().IsOK()); }), kLongestCall_ms);
  EXPECT_LT(pv_test::durationOf([&] { EXPECT_FALSE(connection_.gevDevice().NegotiatePacketSize(0, 0).IsOK()); }),
            kLongestCall_ms);
  EXPECT_TRUE(lostSoon());
}

TEST_F(LostDeviceTest, SilenceWhileStreaming_RetrieveTimesOutAsAskedAndStoppingIsQuick) {
  ASSERT_TRUE(connection_.start().IsOK());
  camera_.faults().vanish();
  int timeouts = 0;
  for (int wait = 0; wait < 100 && timeouts < 12; ++wait) {  // Frames sent before may come first.
    PvBuffer* buffer = nullptr;
    PvResult fared;
    PvResult result;
    const double took_ms =
        pv_test::durationOf([&] { result = connection_.pipeline->RetrieveNextBuffer(&buffer, 300, &fared); });
    EXPECT_LT(took_ms, 320 + pv_test::kScheduling_ms);
    if (result.IsOK()) {
      EXPECT_TRUE(connection_.pipeline->ReleaseBuffer(buffer).IsOK());
      continue;
    }
    EXPECT_EQ(result.GetCode(), Code::Timeout);
    EXPECT_GE(took_ms, 299);
    ++timeouts;
  }
  EXPECT_EQ(timeouts, 12);
  EXPECT_FALSE(connection_.device->IsConnected());
  EXPECT_LT(pv_test::durationOf([&] { EXPECT_TRUE(connection_.pipeline->Stop().IsOK()); }), kLongestCall_ms);
  EXPECT_LT(pv_test::durationOf([&] { connection_.pipeline.reset(); }), kLongestCall_ms);
  EXPECT_TRUE(connection_.stream->IsOpen()) << "a stream stays open until it is closed";
  EXPECT_LT(pv_test::durationOf([&] { EXPECT_TRUE(connection_.stream->Close().IsOK()); }), kLongestCall_ms);
}

TEST_F(LostDeviceTest, SilenceDuringClose_EachStepEndsInTime) {
  ASSERT_TRUE(connection_.start().IsOK());
  PvBuffer* buffer = nullptr;
  PvResult fared;
  ASSERT_TRUE(connection_.pipeline->RetrieveNextBuffer(&buffer, 2000, &fared).IsOK());
  camera_.faults().vanish();
  EXPECT_LT(pv_test::durationOf([&] { EXPECT_FALSE(connection_.execute("AcquisitionStop").IsOK()); }), kLongestCall_ms);
  EXPECT_LT(pv_test::durationOf([&] { connection_.pipeline.reset(); }), kLongestCall_ms);
  EXPECT_LT(pv_test::durationOf([&] { connection_.stream.reset(); }), kLongestCall_ms);
  EXPECT_LT(pv_test::durationOf([&] { connection_.device.reset(); }), kLongestCall_ms);
}

TEST_F(LostDeviceTest, SilenceJustBeforeDisconnect_EndsInTime) {
  camera_.faults().vanish();
  EXPECT_LT(pv_test::durationOf([&] { static_cast<void>(connection_.device->Disconnect()); }), kLongestCall_ms);
}

TEST_F(LostDeviceTest, SilenceDuringSerialRead_EndsInTime) {
  PvDeviceAdapter adapter(connection_.device.get());
  PvDeviceSerialPort port;
  ASSERT_TRUE(port.Open(&adapter, PvDeviceSerialBulk0).IsOK());
  camera_.faults().vanish();
  std::array<uint8_t, 16> bytes{};
  uint32_t count = 1;
  const double read_ms = pv_test::durationOf([&] { EXPECT_FALSE(port.Read(bytes.data(), 16, count, 500).IsOK()); });
  EXPECT_LT(read_ms, 520 + pv_test::kScheduling_ms);
  EXPECT_EQ(count, 0U);
  EXPECT_LT(pv_test::durationOf([&] { EXPECT_FALSE(port.Write(bytes.data(), 16, count).IsOK()); }), kLongestCall_ms);
  EXPECT_LT(pv_test::durationOf([&] { EXPECT_FALSE(port.GetRxBytesReady(count).IsOK()); }), kLongestCall_ms);
  EXPECT_LT(pv_test::durationOf([&] { static_cast<void>(port.Close()); }), kLongestCall_ms);
}

TEST_F(LostDeviceTest, ControlDropped_IsNoticed) {
  camera_.dropControl();
  EXPECT_TRUE(lostSoon());
  EXPECT_EQ(connection_.device->StreamEnable(0).GetCode(), Code::NotConnected);
}

TEST_F(LostDeviceTest, ControlTakenByAnotherHost_IsNoticed) {
  camera_.setOccupied(true);
  EXPECT_TRUE(lostSoon());
}

TEST_F(LostDeviceTest, ControlTakenByAnotherHost_IsNoticedAtOnceByARefusedWrite) {
  camera_.setOccupied(true);
  EXPECT_FALSE(connection_.features().SetIntegerValue("Width", 80).IsOK());
  EXPECT_TRUE(pv_test::eventually([this] { return !connection_.device->IsConnected(); }, milliseconds(200)));
}

TEST_F(LostDeviceTest, LostAndNeverFreed_HoldsNoThreadForLong) {
  const std::size_t threads = pv_test::runningThreads();
  const std::size_t descriptors = pv_test::openDescriptors();
  camera_.faults().vanish();
  EXPECT_TRUE(lostSoon());
  const auto given_back = [&] {
    return pv_test::runningThreads() + 3 < threads && pv_test::openDescriptors() + 2 < descriptors;
  };
  // Working thread, watcher, Aravis' heartbeat and receiver; a dead device keeps Aravis busy for up to 12 seconds.
  EXPECT_TRUE(pv_test::eventually(given_back, milliseconds(15000)))
      << pv_test::runningThreads() << " of " << threads << " threads";
}

TEST_F(LostDeviceTest, DeviceThatComesBack_CanBeConnectedAgain) {
  camera_.faults().vanish(3000);
  EXPECT_TRUE(lostSoon());
  ASSERT_TRUE(pv_test::eventually([this] { return camera_.faults().present(); }, milliseconds(4000)));
  const auto free = [this] { return keocam::useOf(*connection_.info) == keocam::DeviceUse::Free; };
  ASSERT_TRUE(pv_test::eventually(free, milliseconds(5000)));
  pv_test::Connection again(camera_.options());
  ASSERT_TRUE(again.ok());
  ASSERT_TRUE(again.start().IsOK());
  PvBuffer* buffer = nullptr;
  PvResult fared;
  EXPECT_TRUE(again.pipeline->RetrieveNextBuffer(&buffer, 2000, &fared).IsOK());
  std::this_thread::sleep_for(milliseconds(3000));  // The old connection ends in the background meanwhile.
  EXPECT_TRUE(again.device->IsConnected());
}

}  // namespace
