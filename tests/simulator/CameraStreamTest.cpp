// The stream of a whole camera on loopback: frames byte for byte, block ids, resends, test packets, faults.
#include <gtest/gtest.h>

#include <set>

#include "TestHost.h"
#include "simulator/RegisterAddresses.h"
#include "simulator/SimulatedCamera.h"

namespace {

using namespace simulator;
using gvcp::Bytes;

class StreamingCamera : public ::testing::Test {
 protected:
  static CameraOptions options() {
    CameraOptions options;
    options.sensor = {160, 128};
    options.frame_rate_hz = 50;
    return options;
  }
  StreamingCamera() : camera(options()), host("127.0.0.2"), scene(camera.sceneSettings()) {
    EXPECT_TRUE(host.takeControl());
    // No heartbeats are sent, and a busy machine may take its time.
    EXPECT_EQ(host.write(address::kHeartbeatTimeout, 60'000), 0);
  }
  /// Everything that is under way to the stream socket now.
  void drain() {
    while (!host.stream.receive(100).empty()) {
    }
    host.frames.clear();
  }
  uint16_t stop() { return host.write(address::kAcquisitionStop, 1); }
  void setFaults(uint32_t FaultSettings::*knob, uint32_t value) {
    FaultSettings settings;
    settings.*knob = value;
    camera.faults().set(settings);
  }

  SimulatedCamera camera;
  TestHost host;
  Scene scene;
};

TEST_F(StreamingCamera, Frames_AreTheSceneByteForByteAndCountFromOne) {
  ASSERT_TRUE(host.startStream(1500));
  uint64_t last_timestamp_ns = 0;
  for (uint16_t block = 1; block <= 5; ++block) {
    const auto frame = host.nextFrame();
    ASSERT_TRUE(frame);
    EXPECT_TRUE(frame->complete());
    EXPECT_EQ(frame->block_id, block);
    EXPECT_EQ(frame->width, 160U);
    EXPECT_EQ(frame->height, 128U);
    EXPECT_GT(frame->timestamp_ns, last_timestamp_ns);
    EXPECT_EQ(frame->payload.begin()->second.size(), 1500U - 36U);
    EXPECT_EQ(frame->pixels(), scene.render(160, 128, block));
    last_timestamp_ns = frame->timestamp_ns;
  }
}

TEST_F(StreamingCamera, WindowAndPattern_ShowInTheFrames) {
  ASSERT_EQ(host.write(address::kWidth, 100), 0);
  ASSERT_EQ(host.write(address::kHeight, 60), 0);
  ASSERT_EQ(host.write(address::kTestPattern, 1), 0);
  EXPECT_EQ(host.read(address::kPayloadSize), 12000U);
  ASSERT_TRUE(host.startStream());
  const auto frame = host.nextFrame();
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->pixels(), scene.render(100, 60, 1, TestPattern::GreyHorizontalRamp));
}

TEST_F(StreamingCamera, SourcePort_IsTheOneThatTheRegisterNames) {
  ASSERT_TRUE(host.startStream());
  uint16_t from = 0;
  ASSERT_FALSE(host.stream.receive(1000, &from).empty());
  EXPECT_EQ(host.read(address::kStreamSourcePort), from);
}

TEST_F(StreamingCamera, StopAndStart_ContinueTheBlockIds) {
  ASSERT_TRUE(host.startStream());
  ASSERT_TRUE(host.nextFrame());
  ASSERT_EQ(stop(), 0);
  uint16_t last = 0;
  while (const auto frame = host.nextFrame(100)) last = frame->block_id;
  last = std::max<uint16_t>(last, host.frames.rbegin()->first);
  ASSERT_EQ(host.write(address::kAcquisitionStart, 1), 0);
  const auto frame = host.nextFrame();
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->block_id, last + 1);
}

TEST_F(StreamingCamera, PortClosedAndOpened_RestartsTheBlockIds) {
  ASSERT_TRUE(host.startStream());
  ASSERT_TRUE(host.nextFrame());
  ASSERT_EQ(stop(), 0);
  ASSERT_EQ(host.write(address::kStreamPort, 0), 0);
  drain();
  ASSERT_TRUE(host.startStream());
  EXPECT_EQ(host.nextFrame()->block_id, 1);
}

TEST_F(StreamingCamera, AfterStop_NothingComesAnyMore) {
  ASSERT_TRUE(host.startStream());
  ASSERT_TRUE(host.nextFrame());
  ASSERT_EQ(stop(), 0);
  drain();
  EXPECT_TRUE(host.stream.receive(200).empty());
}

TEST_F(StreamingCamera, MultiFrame_SendsItsNumberAndUnlocksTheSize) {
  ASSERT_EQ(host.write(address::kAcquisitionMode, 2), 0);
  ASSERT_EQ(host.write(address::kAcquisitionFrameCount, 3), 0);
  ASSERT_TRUE(host.startStream());
  EXPECT_EQ(host.write(address::kWidth, 100), 0x8006);
  int frames = 0;
  while (host.nextFrame(500)) ++frames;
  EXPECT_EQ(frames, 3);
  EXPECT_FALSE(camera.streaming());
  EXPECT_EQ(host.write(address::kWidth, 100), 0);
}

TEST_F(StreamingCamera, Resend_GivesTheOriginalPacketsFromAnyPort) {
  ASSERT_EQ(host.write(address::kAcquisitionMode, 1), 0);
  ASSERT_TRUE(host.startStream(1500));
  const auto frame = host.nextFrame();
  ASSERT_TRUE(frame && frame->complete());
  host.frames.clear();
  host.stream.sendTo(host.camera_ip, gvcp::packetResend(1, 0, 0xFFFFFF, 1));
  const auto again = host.nextFrame();
  ASSERT_TRUE(again);
  EXPECT_TRUE(again->complete());
  EXPECT_EQ(again->payload, frame->payload);
  EXPECT_EQ(again->timestamp_ns, frame->timestamp_ns);
  host.control.sendTo(host.camera_ip, gvcp::packetResend(1, 2, 3, 2));
  std::set<uint32_t> packets;
  for (int i = 0; i < 2; ++i) {
    const Bytes packet = host.stream.receive(5000);
    ASSERT_GE(packet.size(), 8U) << "packet " << i << " did not come";
    packets.insert(gvcp::u32At(packet, 4));
  }
  EXPECT_EQ(packets, (std::set<uint32_t>{0x03000002U, 0x03000003U}));
  EXPECT_TRUE(host.stream.receive(100).empty());
  EXPECT_EQ(camera.statistics()[Counter::ResentPacket], frame->trailer_id + 1U + 2U);
}

TEST_F(StreamingCamera, ReorderedPackets_AreAllThere) {
  setFaults(&FaultSettings::reorder_permille, 1000);
  ASSERT_EQ(host.write(address::kAcquisitionMode, 1), 0);
  ASSERT_TRUE(host.startStream(1500));
  const auto frame = host.nextFrame();
  ASSERT_TRUE(frame);
  EXPECT_TRUE(frame->complete());
  EXPECT_EQ(frame->pixels(), scene.render(160, 128, 1));
  EXPECT_GT(camera.statistics()[Counter::ReorderedPacket], 0U);
}

TEST_F(StreamingCamera, ResendOfUnknownBlockOrPacket_IsAnsweredUnavailable) {
  ASSERT_EQ(host.write(address::kAcquisitionMode, 1), 0);
  ASSERT_TRUE(host.startStream());
  const auto frame = host.nextFrame();
  ASSERT_TRUE(frame);
  drain();
  host.stream.sendTo(host.camera_ip, gvcp::packetResend(99, 1, 2, 1));
  EXPECT_EQ(host.stream.receive(1000), (Bytes{0x80, 0x0C, 0, 99, 3, 0, 0, 1}));
  host.stream.sendTo(host.camera_ip, gvcp::packetResend(1, 500, 500, 2));
  EXPECT_EQ(host.stream.receive(1000), (Bytes{0x80, 0x0C, 0, 1, 3, 0, 1, 0xF4}));
}

TEST_F(StreamingCamera, OlderFrames_AreKeptForResending) {
  ASSERT_EQ(host.write(address::kAcquisitionMode, 2), 0);
  ASSERT_EQ(host.write(address::kAcquisitionFrameCount, 10), 0);
  ASSERT_TRUE(host.startStream());
  while (host.nextFrame(300)) {
  }
  host.stream.sendTo(host.camera_ip, gvcp::packetResend(3, 1, 1, 1));
  EXPECT_EQ(gvcp::u16At(host.stream.receive(1000), 2), 3);
}

TEST_F(StreamingCamera, TestPacket_HasTheSizeLessItsHeaders) {
  ASSERT_EQ(host.write(0xD18, 0x7F000001), 0);
  ASSERT_EQ(host.write(0xD00, host.stream.port()), 0);
  ASSERT_EQ(host.write(0xD04, 0xC0000000U | 4000U), 0);
  EXPECT_EQ(host.stream.receive(1000).size(), 4000U - 28U);
  EXPECT_EQ(host.read(0xD04), 0x40000000U | 4000U);
  EXPECT_EQ(camera.statistics()[Counter::TestPacket], 1U);
}

TEST_F(StreamingCamera, FrameRate_ChangesWhileFramesRun) {
  ASSERT_EQ(host.write(address::kAcquisitionFrameRate, 0x3F800000), 0);  // 1
  ASSERT_TRUE(host.startStream());
  ASSERT_TRUE(host.nextFrame());
  ASSERT_EQ(host.write(address::kAcquisitionFrameRate, 0x42480000), 0);  // 50
  for (int i = 0; i < 20; ++i) ASSERT_TRUE(host.nextFrame(700)) << "frames still come once a second";
}

TEST_F(StreamingCamera, Loss_IsRepairedByResendRequests) {
  setFaults(&FaultSettings::loss_permille, 300);
  ASSERT_EQ(host.write(address::kAcquisitionMode, 1), 0);
  ASSERT_TRUE(host.startStream(576));
  for (Bytes packet = host.stream.receive(500); !packet.empty(); packet = host.stream.receive(300)) host.take(packet);
  EXPECT_FALSE(host.frames[1].complete()) << "nothing was lost: this run proves nothing";
  for (int round = 0; round < 60 && !host.frames[1].complete(); ++round) {
    host.stream.sendTo(host.camera_ip, gvcp::packetResend(1, 0, 0xFFFFFF, host.nextId()));
    for (Bytes packet = host.stream.receive(200); !packet.empty(); packet = host.stream.receive(20)) host.take(packet);
  }
  EXPECT_TRUE(host.frames[1].complete());
  EXPECT_EQ(host.frames[1].pixels(), scene.render(160, 128, 1));
}

TEST_F(StreamingCamera, LatePackets_ComeAfterTheRest) {
  FaultSettings late;
  late.late_permille = 1000;
  late.late_ms = 300;
  camera.faults().set(late);
  ASSERT_EQ(host.write(address::kAcquisitionMode, 1), 0);
  ASSERT_TRUE(host.startStream());
  EXPECT_TRUE(host.stream.receive(100).empty());
  const auto frame = host.nextFrame();
  ASSERT_TRUE(frame);
  EXPECT_TRUE(frame->complete());
}

TEST_F(StreamingCamera, ShortPackets_KeepTheirHeader) {
  setFaults(&FaultSettings::short_packet_permille, 1000);
  ASSERT_TRUE(host.startStream());
  const auto frame = host.nextFrame();
  ASSERT_TRUE(frame);
  EXPECT_TRUE(frame->complete());
  EXPECT_EQ(frame->payload.at(1).size(), 12U);
}

TEST_F(StreamingCamera, Frozen_PausesTheStream) {
  ASSERT_TRUE(host.startStream());
  ASSERT_TRUE(host.nextFrame());
  camera.faults().freeze(600);
  drain();
  EXPECT_TRUE(host.stream.receive(100).empty());
  EXPECT_TRUE(host.nextFrame(3000));
}

TEST_F(StreamingCamera, Vanished_EndsTheStream) {
  ASSERT_TRUE(host.startStream());
  ASSERT_TRUE(host.nextFrame());
  camera.faults().vanish(100);
  drain();
  EXPECT_TRUE(host.stream.receive(300).empty());
  EXPECT_FALSE(camera.streaming());
}

TEST_F(StreamingCamera, PacketDelay_SlowsTheFrameDown) {
  ASSERT_EQ(host.write(address::kAcquisitionMode, 1), 0);
  ASSERT_EQ(host.write(address::kStreamPacketDelay, 5'000'000), 0);
  const auto begin = std::chrono::steady_clock::now();
  ASSERT_TRUE(host.startStream(1500));
  const auto frame = host.nextFrame();
  ASSERT_TRUE(frame && frame->complete());
  const auto elapsed = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(elapsed, std::chrono::milliseconds(5) * frame->trailer_id);
}

}  // namespace
