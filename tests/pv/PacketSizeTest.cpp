// The negotiation of the stream's packet size.
#include "pv/aravis/PacketSize.h"

#include <gtest/gtest.h>

#include <cstdlib>

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

// Sets the MTU of loopback for a test, where the test has a network namespace of its own to do that in.
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
  for (const int mtu_bytes : {1500, 4000}) {
    const LoopbackMtu mtu(mtu_bytes);
    if (!mtu.ok()) GTEST_SKIP() << "the MTU of loopback cannot be set here";
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
