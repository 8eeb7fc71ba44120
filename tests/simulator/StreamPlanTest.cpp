// Stream packets byte for byte, the bursts they leave in, and what faults do to them.
#include "simulator/StreamPlan.h"

#include <gtest/gtest.h>

namespace {

using namespace simulator;

StreamFrame frameOf(uint32_t width, uint32_t height, std::size_t packet_data_bytes) {
  StreamFrame frame;
  frame.block_id = 0x1234;
  frame.timestamp_ns = 0x1122334455667788;
  frame.size = {width, height};
  frame.packet_data_bytes = packet_data_bytes;
  frame.pixels.resize(std::size_t{width} * height);
  for (std::size_t i = 0; i < frame.pixels.size(); ++i) frame.pixels[i] = static_cast<uint16_t>(i & 0x3FFF);
  return frame;
}

Bytes bytesOf(const StreamPacket& packet) {
  Bytes bytes(packet.head.begin(), packet.head.begin() + static_cast<std::ptrdiff_t>(packet.head_bytes));
  if (packet.data != nullptr) bytes.insert(bytes.end(), packet.data, packet.data + packet.data_bytes);
  return bytes;
}

TEST(GvspPacket, Leader_HasThirtySixBytesBehindItsHeader) {
  EXPECT_EQ(bytesOf(makePacket(frameOf(20, 10, 100), 0)),
            (Bytes{0,    0,    0x12, 0x34, 1,    0,    0,    0,  // status, block, leader, packet 0
                   0,    0,    0,    1,    0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88,  // image, time stamp
                   0x01, 0x10, 0x00, 0x25, 0,    0,    0,    20,   0,    0,    0,    10,    // format, width, height
                   0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0}));  // offsets, paddings
}

TEST(GvspPacket, Payload_IsFullButForTheLastAndLittleEndian) {
  const StreamFrame frame = frameOf(20, 11, 100);  // 440 bytes
  EXPECT_EQ(frame.packetCount(), 7U);
  const Bytes second = bytesOf(makePacket(frame, 2));
  ASSERT_EQ(second.size(), 108U);
  EXPECT_EQ(Bytes(second.begin(), second.begin() + 12), (Bytes{0, 0, 0x12, 0x34, 3, 0, 0, 2, 50, 0, 51, 0}));
  EXPECT_EQ(bytesOf(makePacket(frame, 5)).size(), 48U);
}

TEST(GvspPacket, Trailer_CarriesTheHeight) {
  EXPECT_EQ(bytesOf(makePacket(frameOf(20, 11, 100), 6)),
            (Bytes{0, 0, 0x12, 0x34, 2, 0, 0, 6, 0, 0, 0, 1, 0, 0, 0, 11}));
}

TEST(GvspPacket, PacketCount_WithoutRemainder_HasNoEmptyPacket) { EXPECT_EQ(frameOf(20, 10, 100).packetCount(), 6U); }

TEST(GvspPacket, Unavailable_IsAHeaderWithItsStatus) {
  const GvspHeader header = makeUnavailable(7, 3);
  EXPECT_EQ(Bytes(header.begin(), header.end()), (Bytes{0x80, 0x0C, 0, 7, 3, 0, 0, 3}));
}

TEST(NextBlockId, Wraps_ToOne) {
  EXPECT_EQ(nextBlockId(1), 2);
  EXPECT_EQ(nextBlockId(65535), 1);
}

TEST(PlanBursts, Bursts_FitAnUntunedReceiverAndTheFramesTime) {
  StreamSettings settings;
  settings.frame_rate_hz = 60;
  for (const uint32_t size : {576U, 1400U, 1500U, 8000U, 9000U}) {
    settings.packet_size_bytes = size;
    const uint32_t packets = 655360 / (size - 36) + 3;
    const BurstPlan plan = planBursts(settings, packets);
    EXPECT_LE(plan.packets, size <= 1500 ? 64U : 8U);
    EXPECT_GT(plan.gap_ns, 0U);
    EXPECT_LT((packets / plan.packets) * plan.gap_ns, 1'000'000'000U / 60U);
  }
}

TEST(PlanBursts, PacketDelay_IsKeptOnAverage) {
  StreamSettings settings;
  for (const uint64_t delay_ns : {1'000U, 50'000U, 1'000'000U}) {
    settings.packet_delay_ns = delay_ns;
    const BurstPlan plan = planBursts(settings, 483);
    EXPECT_EQ(plan.gap_ns, plan.packets * delay_ns);
  }
  EXPECT_EQ(planBursts(settings, 483).packets, 1U);
}

class PlanPackets : public ::testing::Test {
 protected:
  PlannedPackets plan(const FaultSettings& settings) {
    Faults faults(settings, 42);
    return planPackets(frame, 0, frame.packetCount(), faults, statistics);
  }
  static uint32_t idOf(const StreamPacket& packet) {
    return (static_cast<uint32_t>(packet.head[5]) << 16) |
           static_cast<uint32_t>((packet.head[6] << 8) | packet.head[7]);
  }
  StreamFrame frame = frameOf(200, 500, 100);  // 2000 payload packets
  StatisticsBoard statistics;
};

TEST_F(PlanPackets, WithoutFaults_SendsAllInOrder) {
  const PlannedPackets planned = plan({});
  ASSERT_EQ(planned.now.size(), 2002U);
  EXPECT_TRUE(planned.late.empty());
  for (uint32_t i = 0; i < 2002; ++i) ASSERT_EQ(idOf(planned.now[i]), i);
}

TEST_F(PlanPackets, Loss_TakesItsShare) {
  FaultSettings settings;
  settings.loss_permille = 100;
  const std::size_t sent = plan(settings).now.size();
  EXPECT_NEAR(static_cast<double>(sent), 1802.0, 60.0);
  EXPECT_EQ(statistics.snapshot()[Counter::DroppedPacket], 2002U - sent);
}

TEST_F(PlanPackets, SameSeed_StrikesTheSamePackets) {
  FaultSettings settings;
  settings.loss_permille = 500;
  const PlannedPackets first = plan(settings);
  const PlannedPackets second = plan(settings);
  ASSERT_EQ(first.now.size(), second.now.size());
  for (std::size_t i = 0; i < first.now.size(); ++i) ASSERT_EQ(idOf(first.now[i]), idOf(second.now[i]));
}

TEST_F(PlanPackets, LateDuplicateReorderShort_DoWhatTheySay) {
  FaultSettings late;
  late.late_permille = 1000;
  EXPECT_EQ(plan(late).late.size(), 2002U);
  FaultSettings duplicate;
  duplicate.duplicate_permille = 1000;
  EXPECT_EQ(plan(duplicate).now.size(), 4004U);
  FaultSettings reorder;
  reorder.reorder_permille = 1000;
  const PlannedPackets reordered = plan(reorder);
  ASSERT_EQ(reordered.now.size(), 2002U);
  EXPECT_EQ(idOf(reordered.now[0]), 1U);
  EXPECT_EQ(idOf(reordered.now[1]), 0U);
  FaultSettings truncated;
  truncated.short_packet_permille = 1000;
  EXPECT_EQ(plan(truncated).now[1].data_bytes, 12U);
}

TEST_F(PlanPackets, DropLeaderAndTrailer_TakeJustThese) {
  FaultSettings settings;
  settings.drop_leader_permille = 1000;
  settings.drop_trailer_permille = 1000;
  const PlannedPackets planned = plan(settings);
  ASSERT_EQ(planned.now.size(), 2000U);
  EXPECT_EQ(idOf(planned.now.front()), 1U);
  EXPECT_EQ(idOf(planned.now.back()), 2000U);
}

}  // namespace
