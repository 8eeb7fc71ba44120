// The negotiation of the stream's packet size.
#include "pv/aravis/PacketSize.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "pv/aravis/NetworkInterfaces.h"
#include "tests/pv/TestCamera.h"

namespace {

using keocam::largestArriving;
using pv_test::Code;

// What negotiation finds on a path that carries at most `path_bytes`, and how many sizes it tries.
uint32_t found(const keocam::PacketSizeRange& range, uint32_t path_bytes, int* tries = nullptr) {
  return largestArriving(range, [&](uint32_t size_bytes) {
    EXPECT_GE(size_bytes, range.minimum_bytes);
    EXPECT_LE(size_bytes, range.maximum_bytes);
    if (tries != nullptr) ++*tries;
    return size_bytes <= path_bytes;
  });
}

TEST(LargestArriving, WholeRangeArrives_IsItsMaximumAtTheFirstTry) {
  int tries = 0;
  EXPECT_EQ(found({576, 9000, 4}, 65535, &tries), 9000U);
  EXPECT_EQ(tries, 1);
}

TEST(LargestArriving, EveryPath_IsFoundToTheStep) {
  for (uint32_t path_bytes = 576; path_bytes < 2000; ++path_bytes) {
    int tries = 0;
    EXPECT_EQ(found({576, 9000, 4}, path_bytes, &tries), path_bytes / 4 * 4) << path_bytes;
    EXPECT_LE(tries, 14);
  }
}

TEST(LargestArriving, NothingArrives_IsNone) {
  EXPECT_EQ(found({576, 9000, 4}, 575), 0U);
  EXPECT_EQ(found({576, 576, 4}, 575), 0U);
  EXPECT_EQ(found({600, 576, 4}, 9000), 0U);
}

TEST(LargestArriving, OddStepsAndBounds_StayInTheRange) {
  EXPECT_EQ(found({576, 1499, 100}, 9000), 1476U);
  EXPECT_EQ(found({576, 1500, 0}, 1000), 1000U);
}

TEST(RangeWithin, DeviceThatTakesSmallerPackets_BeginsAt576OnItsOwnSteps) {
  EXPECT_EQ(keocam::rangeWithin({220, 16404, 4}, 9000).minimum_bytes, 576U);
  EXPECT_EQ(keocam::rangeWithin({220, 16404, 4}, 9000).maximum_bytes, 9000U);
  EXPECT_EQ(keocam::rangeWithin({100, 9000, 64}, 9000).minimum_bytes, 100U + 8 * 64);
  EXPECT_EQ(keocam::rangeWithin({600, 9000, 8}, 9000).minimum_bytes, 600U);
}

TEST(RangeWithin, MtuBelow576_IsStillARange) {
  const auto range = keocam::rangeWithin({220, 9000, 4}, 400);
  EXPECT_EQ(range.minimum_bytes, 400U);
  EXPECT_EQ(range.maximum_bytes, 400U);
  const auto none = keocam::rangeWithin({576, 9000, 4}, 400);
  EXPECT_EQ(found(none, 65535), 0U);
  EXPECT_EQ(keocam::roundedToStep(none, 1500), 576U);
}

TEST(RoundedToStep, SizesBetweenSteps_GoDown) {
  EXPECT_EQ(keocam::roundedToStep({576, 9000, 16}, 1500), 1488U);
  EXPECT_EQ(keocam::roundedToStep({576, 9000, 4}, 1500), 1500U);
  EXPECT_EQ(keocam::roundedToStep({576, 9000, 4}, 65535), 9000U);
  EXPECT_EQ(keocam::roundedToStep({576, 9000, 4}, 100), 576U);
}

// A device's packet size register that takes sizes up to `refused_from`, behind a path that carries `path_bytes`.
struct ScriptedDevice {
  uint32_t path_bytes = 65535;
  uint32_t refused_from = 65536;
  std::size_t dies_after_writes = SIZE_MAX;
  uint32_t value = kBefore;
  std::size_t writes = 0;

  static constexpr uint32_t kOtherBits = 0x20000000;
  static constexpr uint32_t kBefore = kOtherBits | 0x80000000 | 1400;
  static constexpr uint32_t kRestored = kOtherBits | 1400;

  keocam::PacketSizeTrial trial() {
    return {[this](uint32_t written) -> PvResult {
              // The failure passes: a device that stays dead could not be written back to.
              if (writes++ == dies_after_writes) return {Code::Timeout, PvString("no answer")};
              if ((written & 0xFFFF) >= refused_from) return {Code::InvalidParameter, PvString("refused")};
              value = written;
              return {};
            },
            [this](uint32_t size_bytes) { return (value & 0xFFFF) == size_bytes && size_bytes <= path_bytes; }};
  }
};

TEST(SearchPacketSize, RefusedSizes_CountAsNotArriving) {
  ScriptedDevice device;
  device.refused_from = 4001;
  uint32_t found_bytes = 0;
  EXPECT_TRUE(keocam::searchPacketSize({576, 9000, 4}, device.value, device.trial(), found_bytes).IsOK());
  EXPECT_EQ(found_bytes, 4000U);
  EXPECT_EQ(device.value, ScriptedDevice::kOtherBits | 0x40000000 | 4000U);
}

TEST(SearchPacketSize, FailureAtAnyWrite_LeavesTheSizeOfBefore) {
  ScriptedDevice whole;
  whole.path_bytes = 1500;
  uint32_t found_bytes = 0;
  ASSERT_TRUE(keocam::searchPacketSize({576, 9000, 4}, whole.value, whole.trial(), found_bytes).IsOK());
  ASSERT_GT(whole.writes, 10U);
  for (std::size_t good = 0; good < whole.writes; ++good) {
    ScriptedDevice device;
    device.path_bytes = 1500;
    device.dies_after_writes = good;
    const PvResult result = keocam::searchPacketSize({576, 9000, 4}, device.value, device.trial(), found_bytes);
    EXPECT_EQ(result.GetCode(), Code::Timeout) << good;
    EXPECT_EQ(found_bytes, 0U) << good;
    EXPECT_EQ(device.value, ScriptedDevice::kRestored) << good;
  }
}

TEST(SearchPacketSize, NothingArrives_LeavesTheSizeOfBefore) {
  for (const uint32_t refused_from : {65536U, 2000U}) {
    ScriptedDevice device;
    device.path_bytes = 0;
    device.refused_from = refused_from;
    uint32_t found_bytes = 7;
    EXPECT_TRUE(keocam::searchPacketSize({576, 9000, 4}, device.value, device.trial(), found_bytes).IsOK());
    EXPECT_EQ(found_bytes, 0U);
    EXPECT_EQ(device.value, ScriptedDevice::kRestored);
  }
}

TEST(NegotiatePacketSize, OnLoopback_IsTheDevicesLargest) {
  const simulator::SimulatedCamera camera(pv_test::smallCamera());
  pv_test::Connection connection(camera.options());
  ASSERT_TRUE(connection.ok());
  EXPECT_TRUE(connection.packet_size_result.IsOK()) << pv_test::textOf(connection.packet_size_result);
  const uint32_t size_bytes = keocam::packetSizeOf(*connection.stream);
  EXPECT_GT(size_bytes, 8000U);
  EXPECT_LE(size_bytes, keocam::mtuOf("lo"));
  EXPECT_GE(camera.statistics()[simulator::Counter::TestPacket], 1U);
  ASSERT_TRUE(connection.start().IsOK());
  PvBuffer* buffer = nullptr;
  PvResult fared;
  EXPECT_TRUE(connection.pipeline->RetrieveNextBuffer(&buffer, 2000, &fared).IsOK());
}

// Whether loopback is the test's own, to be changed, and not the machine's. script/in-namespace says so.
bool hasOwnNamespace() {
  const char* const kind = std::getenv("KEOCAM_IN_NAMESPACE");
  return kind != nullptr && std::string(kind) == "own";
}

// Sets the MTU of loopback for a test.
class LoopbackMtu {
 public:
  explicit LoopbackMtu(int mtu_bytes) { set(mtu_bytes); }
  ~LoopbackMtu() { set(65536); }
  LoopbackMtu(const LoopbackMtu&) = delete;
  LoopbackMtu& operator=(const LoopbackMtu&) = delete;
  bool ok() const { return ok_; }

 private:
  void set(int mtu_bytes) {
    const std::string command = "ip link set lo mtu " + std::to_string(mtu_bytes) + " 2>/dev/null";
    ok_ = std::system(command.c_str()) == 0;  // NOLINT: the command is ours
  }
  bool ok_ = false;
};

TEST(NegotiatePacketSize, MtuBelowTheDevicesLargest_IsNeverExceeded) {
  // The machine's own loopback is left alone: the search within an MTU is tested above without a network as well.
  if (!hasOwnNamespace()) GTEST_SKIP() << "needs a network namespace of its own";
  for (const int mtu_bytes : {1500, 4000}) {
    const LoopbackMtu mtu(mtu_bytes);
    ASSERT_TRUE(mtu.ok()) << "the MTU of loopback cannot be set";
    const simulator::SimulatedCamera camera(pv_test::smallCamera());
    pv_test::Connection connection(camera.options());
    ASSERT_TRUE(connection.ok());
    EXPECT_TRUE(connection.packet_size_result.IsOK()) << pv_test::textOf(connection.packet_size_result);
    EXPECT_EQ(keocam::packetSizeOf(*connection.stream), static_cast<uint32_t>(mtu_bytes));
    ASSERT_TRUE(connection.start().IsOK());
    PvBuffer* buffer = nullptr;
    PvResult fared;
    EXPECT_TRUE(connection.pipeline->RetrieveNextBuffer(&buffer, 2000, &fared).IsOK());
  }
}

TEST(NegotiatePacketSize, WhileStreaming_IsRefused) {
  const simulator::SimulatedCamera camera(pv_test::smallCamera());
  pv_test::Connection connection(camera.options());
  ASSERT_TRUE(connection.ok());
  ASSERT_TRUE(connection.start().IsOK());
  EXPECT_EQ(connection.gevDevice().NegotiatePacketSize(0, 0).GetCode(), Code::AccessDenied);
  PvBuffer* buffer = nullptr;
  PvResult fared;
  EXPECT_TRUE(connection.pipeline->RetrieveNextBuffer(&buffer, 2000, &fared).IsOK());
}

TEST(NegotiatePacketSize, Again_KeepsTheStreamsPort) {
  const simulator::SimulatedCamera camera(pv_test::smallCamera());
  pv_test::Connection connection(camera.options());
  ASSERT_TRUE(connection.ok());
  const auto port = connection.gevStream().GetLocalPort();
  EXPECT_GT(port, 0);
  EXPECT_STREQ(connection.gevStream().GetLocalIPAddress().GetAscii(), "127.0.0.1");
  EXPECT_TRUE(connection.gevDevice().NegotiatePacketSize(0, 0).IsOK());
  EXPECT_EQ(connection.gevStream().GetLocalPort(), port);
  ASSERT_TRUE(connection.start().IsOK());
  PvBuffer* buffer = nullptr;
  PvResult fared;
  EXPECT_TRUE(connection.pipeline->RetrieveNextBuffer(&buffer, 2000, &fared).IsOK());
}

}  // namespace
