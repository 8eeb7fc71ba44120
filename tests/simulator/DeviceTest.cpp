// What writes to the device's registers set off, and what the heartbeat does.
#include "simulator/Device.h"

#include <gtest/gtest.h>

#include "DeviceBench.h"
#include "simulator/core/ModelCatalogue.h"

namespace {

using namespace simulator;
using Log = std::vector<std::string>;
constexpr uint16_t kAccessDenied = 0x8006;
constexpr uint16_t kInvalidParameter = 0x8002;

class DeviceUnderControl : public ::testing::Test {
 protected:
  DeviceUnderControl() { bench.takeControl(); }
  DeviceBench bench;
};

TEST_F(DeviceUnderControl, Heartbeat_OwnerSilent_EndsControlStreamAndPort) {
  bench.write(address::kHeartbeatTimeout, 500);
  bench.write(address::kStreamDestination, 0x7F000001);
  bench.write(address::kStreamPort, 5000);
  bench.write(address::kAcquisitionStart, 1);
  bench.pass(499);
  bench.device.tick(bench.now_ns);
  EXPECT_TRUE(bench.device.controlled());
  EXPECT_TRUE(bench.stream.running);
  bench.pass(1);
  bench.device.tick(bench.now_ns);
  EXPECT_FALSE(bench.device.controlled());
  EXPECT_FALSE(bench.stream.running);
  EXPECT_FALSE(bench.stream.applied.open());
  EXPECT_EQ(bench.read(address::kControlPrivilege), 0U);
  EXPECT_EQ(bench.read(address::kStreamPort), 0U);
  EXPECT_EQ(bench.statistics.snapshot()[Counter::ControlExpired], 1U);
}

TEST_F(DeviceUnderControl, Heartbeat_AnyCommandOfTheOwner_KeepsControlAndOthersDoNot) {
  bench.pass(2900);
  bench.read(0x24);
  bench.pass(2900);
  EXPECT_EQ(bench.read(address::kControlPrivilege), 2U);
  bench.pass(2900);
  bench.read(0x24, DeviceBench::kOther);
  bench.pass(100);
  EXPECT_EQ(bench.read(address::kControlPrivilege, DeviceBench::kOther), 0U);
}

TEST_F(DeviceUnderControl, Heartbeat_CommandsThatDoNotCount_LetControlExpire) {
  const gvcp::Bytes beat = gvcp::readRegister(address::kControlPrivilege, 77);
  for (int i = 0; i < 3; ++i) {
    bench.pass(1000);
    bench.server.handle(beat.data(), beat.size(), DeviceBench::kHost, bench.now_ns, false);
  }
  EXPECT_FALSE(bench.device.controlled());
}

TEST_F(DeviceUnderControl, NextTick_IsTheHeartbeatsEnd) {
  EXPECT_EQ(bench.device.nextTickNs(), bench.now_ns + uint64_t{3000} * 1'000'000);
}

TEST_F(DeviceUnderControl, ControlPrivilege_GivenBack_IsFreeForOthers) {
  EXPECT_EQ(bench.read(address::kControllerPort), DeviceBench::kHost.port);
  EXPECT_EQ(bench.read(address::kControllerIp), DeviceBench::kHost.ip);
  EXPECT_EQ(bench.write(address::kControlPrivilege, 0), 0);
  EXPECT_EQ(bench.write(address::kControlPrivilege, 2, DeviceBench::kOther), 0);
  EXPECT_EQ(bench.write(address::kWidth, 320), kAccessDenied);
}

TEST_F(DeviceUnderControl, Occupied_ReadsAsControlledAndRefusesEveryone) {
  bench.device.setOccupied(true, bench.now_ns);
  EXPECT_EQ(bench.read(address::kControlPrivilege), 2U);
  EXPECT_EQ(bench.write(address::kControlPrivilege, 2), kAccessDenied);
  EXPECT_EQ(bench.write(address::kWidth, 320), kAccessDenied);
  bench.device.setOccupied(false, bench.now_ns);
  EXPECT_EQ(bench.read(address::kControlPrivilege), 0U);
  EXPECT_EQ(bench.write(address::kControlPrivilege, 2), 0);
}

TEST_F(DeviceUnderControl, ImageRegisters_WhileStreaming_AreLocked) {
  bench.write(address::kAcquisitionStart, 1);
  for (const uint32_t at : {address::kWidth, address::kHeight}) EXPECT_EQ(bench.write(at, 100), kAccessDenied);
  EXPECT_EQ(bench.write(address::kPixelFormat, kPixelFormatMono14), kAccessDenied);
  EXPECT_EQ(bench.write(address::kTestPattern, 1), 0);
  bench.write(address::kAcquisitionStop, 1);
  EXPECT_EQ(bench.write(address::kWidth, 100), 0);
}

TEST(DeviceImageRegisters, SensorsOwnSize_IsTakenAndMinusOneAndMoreAreRefused) {
  constexpr uint32_t kMinusOne = 0xFFFFFFFF;
  for (const CoreModel& model : kCoreModels) {
    DeviceBench bench(nullptr, true, model.sensor);
    bench.takeControl();
    for (const auto& [at, size] :
         {std::pair(address::kWidth, model.sensor.width), std::pair(address::kHeight, model.sensor.height)}) {
      EXPECT_EQ(bench.read(at), size) << model.id;
      EXPECT_EQ(bench.write(at, size), 0) << model.id;
      EXPECT_EQ(bench.write(at, kMinusOne), kInvalidParameter) << model.id;
      EXPECT_EQ(bench.write(at, size + 1), kInvalidParameter) << model.id;
      EXPECT_EQ(bench.read(at), size) << model.id;
    }
    EXPECT_TRUE(bench.stream.applied.window == model.sensor) << model.id;
  }
}

TEST_F(DeviceUnderControl, ImageRegisters_WithTransportLocked_AreLocked) {
  bench.write(address::kTransportLocked, 1);
  EXPECT_EQ(bench.write(address::kWidth, 100), kAccessDenied);
  bench.write(address::kTransportLocked, 0);
  EXPECT_EQ(bench.write(address::kWidth, 100), 0);
}

TEST_F(DeviceUnderControl, StreamPort_Opened_RestartsBlockIdsOnlyWhenItIsNew) {
  bench.write(address::kStreamPort, 5000);
  bench.write(address::kStreamPort, 5000);
  bench.write(address::kAcquisitionStart, 1);
  bench.write(address::kAcquisitionStop, 1);
  EXPECT_EQ(bench.stream.log, (Log{"restart", "start 0", "stop"}));
  bench.write(address::kStreamPort, 5001);
  bench.write(address::kStreamPort, 0);
  bench.write(address::kStreamPort, 5001);
  EXPECT_EQ(bench.stream.log, (Log{"restart", "start 0", "stop", "restart", "restart"}));
}

TEST_F(DeviceUnderControl, AcquisitionMode_SetsTheNumberOfFrames) {
  bench.write(address::kAcquisitionMode, 1);
  bench.write(address::kAcquisitionStart, 1);
  bench.write(address::kAcquisitionStop, 1);
  bench.write(address::kAcquisitionMode, 2);
  bench.write(address::kAcquisitionFrameCount, 5);
  bench.write(address::kAcquisitionStart, 1);
  EXPECT_EQ(bench.stream.log, (Log{"start 1", "stop", "start 5"}));
}

TEST_F(DeviceUnderControl, FireTestPacket_ClearsItselfAndKeepsSizeAndFlag) {
  EXPECT_EQ(bench.write(address::kStreamPacketSize, 0xC0000000U | 8000U), 0);
  EXPECT_EQ(bench.stream.log, (Log{"test packet"}));
  EXPECT_EQ(bench.read(address::kStreamPacketSize), 0x40000000U | 8000U);
  EXPECT_TRUE(bench.stream.applied.do_not_fragment);
  EXPECT_EQ(bench.stream.applied.packet_size_bytes, 8000U);
}

TEST_F(DeviceUnderControl, CommandWrittenZero_DoesNothing) {
  EXPECT_EQ(bench.write(address::kAcquisitionStart, 0), 0);
  EXPECT_TRUE(bench.stream.log.empty());
}

TEST_F(DeviceUnderControl, TimestampLatch_HoldsTheTimeOfTheWrite) {
  bench.pass(1234);
  const uint64_t written_ns = bench.now_ns;
  bench.write(address::kTimestampControl, 2);
  bench.pass(10);
  const uint64_t latched =
      (uint64_t{bench.read(address::kTimestampValue)} << 32) | bench.read(address::kTimestampValue + 4);
  EXPECT_EQ(latched, written_ns);
}

TEST_F(DeviceUnderControl, StreamRegisters_ReachTheStream) {
  bench.write(address::kStreamDestination, 0x7F000001);
  bench.write(address::kStreamPacketDelay, 12345);
  bench.write(address::kAcquisitionFrameRate, 0x426E0000);  // 59.5
  bench.write(address::kHeight, 300);
  EXPECT_EQ(bench.stream.applied.destination_ip, 0x7F000001U);
  EXPECT_EQ(bench.stream.applied.packet_delay_ns, 12345U);
  EXPECT_EQ(bench.stream.applied.frame_rate_hz, 59.5);
  EXPECT_EQ(bench.stream.applied.window.height, 300U);
  EXPECT_EQ(bench.read(address::kStreamSourcePort), 50000U);
}

}  // namespace
