// A camera with its core on loopback: requests through the file access registers, and what they do to the stream.
#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>

#include "CoreBench.h"
#include "TestHost.h"
#include "simulator/RegisterAddresses.h"
#include "simulator/SimulatedCamera.h"
#include "simulator/core/CoreOptionsFor.h"
#include "simulator/core/VideoPicture.h"

namespace {

using namespace simulator;
using core_test::request;
using core_test::wordBytes;

constexpr int kAnswerTimeoutMs = 2000;
constexpr uint8_t kDoFfc = 12;
constexpr uint32_t kBaud115200 = 115200;

class CameraWithCore : public ::testing::Test {
 protected:
  explicit CameraWithCore(bool pacing = false)
      : options(cameraOptions(pacing)), core(options.core), camera(options), host("127.0.0.2") {
    EXPECT_TRUE(host.takeControl());
    operate(0);  // open
  }
  static CameraOptions cameraOptions(bool pacing) {
    CameraOptions options;
    options.sensor = {160, 128};
    options.frame_rate_hz = 50;
    options.uart_pacing = pacing;
    CoreOptions core = coreOptionsFor(options);
    core.shutter_ms = 200;
    options.core = std::make_shared<ThermalCore>(core);
    return options;
  }

  /// One file operation in one write of memory.
  void operate(uint32_t operation, uint32_t length = 0, Bytes data = {}) {
    data.resize((data.size() + 3) / 4 * 4);
    const Bytes block = gvcp::join({gvcp::u32(operation), gvcp::u32(0), gvcp::u32(length), gvcp::u32(1), data});
    EXPECT_EQ(host.ask(gvcp::writeMemory(address::kFileOperation, block, host.nextId())).status, 0);
  }
  void send(const Bytes& bytes) { operate(3, static_cast<uint32_t>(bytes.size()), bytes); }
  /// What comes in until `size` bytes are there or the time is over.
  Bytes receive(std::size_t size, int timeout_ms = kAnswerTimeoutMs) {
    Bytes received;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout_ms);
    while (received.size() < size && std::chrono::steady_clock::now() < end) {
      operate(2, static_cast<uint32_t>(size - received.size()));
      const uint32_t count = host.read(address::kFileResult).value_or(0);
      if (count == 0) continue;
      const auto rounded = static_cast<uint16_t>((count + 3) / 4 * 4);
      Bytes answer = host.ask(gvcp::readMemory(address::kFileBuffer, rounded, host.nextId())).payload;
      if (answer.size() < 4U + count) break;
      received.insert(received.end(), answer.begin() + 4, answer.begin() + 4 + count);
    }
    return received;
  }
  core_test::Answer ask(uint8_t function, const Bytes& payload, std::size_t answer_bytes) {
    send(request(function, payload));
    return core_test::parse(receive(answer_bytes + 10));
  }
  /// The frame as the core's own record of its block says it must look.
  std::vector<uint16_t> recomputed(const ReceivedFrame& frame) const {
    const auto video = core->videoOf(frame.block_id);
    return video ? renderVideo(Scene(camera.sceneSettings()), frame.width, frame.height, *video)
                 : std::vector<uint16_t>();
  }

  CameraOptions options;
  std::shared_ptr<ThermalCore> core;
  SimulatedCamera camera;
  TestHost host;
};

class PacedCameraWithCore : public CameraWithCore {
 protected:
  PacedCameraWithCore() : CameraWithCore(true) {}
};

TEST_F(CameraWithCore, Request_IsAnsweredThroughTheSerialPort) {
  const core_test::Answer part = ask(102, {}, 32);
  EXPECT_TRUE(part.sound);
  EXPECT_EQ(std::string(part.payload.begin(), part.payload.begin() + 16), "46160007H-FRNLX^");
  EXPECT_EQ(ask(20, wordBytes(99), 2).status, 0);
  EXPECT_EQ(core->word(20), 99);
  EXPECT_EQ(core->log().size(), 2U);
}

TEST_F(CameraWithCore, RequestInTwoWrites_IsPutTogether) {
  const Bytes whole = request(11);
  send(Bytes(whole.begin(), whole.begin() + 4));
  send(Bytes(whole.begin() + 4, whole.end()));
  EXPECT_EQ(core_test::parse(receive(12)).word(), 1);
}

TEST_F(CameraWithCore, OtherBaudRate_GetsNoAnswer) {
  ASSERT_EQ(host.write(address::kBulkBaudRate, kBaud115200), 0);
  send(request(11));
  EXPECT_TRUE(receive(1, 200).empty());
  ASSERT_EQ(core->log().size(), 1U);
  EXPECT_EQ(core->log()[0].verdict, Verdict::WrongLine);
}

TEST_F(PacedCameraWithCore, Answer_TakesTheTimeOfTheLine) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(ask(11, {}, 2).sound);
  // 10 and 12 characters of 173.6 us, and the core's millisecond.
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::microseconds(4800));
}

TEST_F(CameraWithCore, Frames_CanBeRecomputed) {
  ask(17, wordBytes(3), 2);
  ASSERT_TRUE(host.startStream());
  for (int i = 0; i < 3; ++i) {
    const auto frame = host.nextFrame();
    ASSERT_TRUE(frame && frame->complete());
    EXPECT_EQ(frame->pixels(), recomputed(*frame));
    EXPECT_NE(frame->pixels(), Scene(camera.sceneSettings()).render(160, 128, frame->block_id));
  }
}

TEST_F(CameraWithCore, Correction_FreezesThePictureAndLetsItGoOn) {
  ASSERT_TRUE(host.startStream());
  ASSERT_TRUE(host.nextFrame());
  ask(kDoFfc, {}, 2);
  std::vector<ReceivedFrame> frozen;
  std::optional<ReceivedFrame> after;
  for (int i = 0; i < 200 && !after; ++i) {
    const auto frame = host.nextFrame();
    ASSERT_TRUE(frame && frame->complete());
    ASSERT_EQ(frame->pixels(), recomputed(*frame));
    if (core->videoOf(frame->block_id)->frozen) {
      frozen.push_back(*frame);
    } else if (!frozen.empty()) {
      after = frame;
    }
  }
  ASSERT_GE(frozen.size(), 2U);
  ASSERT_TRUE(after);
  for (const ReceivedFrame& frame : frozen) EXPECT_EQ(frame.pixels(), frozen[0].pixels());
  EXPECT_NE(after->pixels(), frozen[0].pixels());
  EXPECT_EQ(core->ffcCount(), 1U);
}

TEST_F(CameraWithCore, CamerasOwnPattern_TakesThePlaceOfTheCoresPicture) {
  ask(37, wordBytes(6), 2);
  ASSERT_EQ(host.write(address::kTestPattern, 1), 0);
  ASSERT_TRUE(host.startStream());
  const auto frame = host.nextFrame();
  ASSERT_TRUE(frame && frame->complete());
  EXPECT_EQ(frame->pixels(),
            Scene(camera.sceneSettings()).render(160, 128, frame->block_id, TestPattern::GreyHorizontalRamp));
}

TEST(CoreOptionsFor, PartNumber_SaysTheSensorsSize) {
  CameraOptions camera;
  camera.seed = 7;
  camera.uart_pacing = false;
  const std::pair<ImageSize, std::string> parts[] = {
      {{640, 512}, "640"}, {{336, 256}, "336"}, {{320, 256}, "324"}, {{160, 128}, "160"}, {{100, 100}, "640"}};
  for (const auto& [sensor, digits] : parts) {
    camera.sensor = sensor;
    const CoreOptions options = coreOptionsFor(camera);
    EXPECT_EQ(options.identity.part_number.substr(2, 3), digits);
    EXPECT_TRUE(isRadiometric(options.identity));
    EXPECT_TRUE(isFast(options.identity));
    EXPECT_EQ(options.seed, 7U);
    EXPECT_EQ(options.processing_us, 0U);
  }
}

TEST(CameraOptions, CoreAndAnotherPeer_Throw) {
  CameraOptions options;
  options.core = std::make_shared<ThermalCore>();
  options.uart_peer = std::make_shared<ThermalCore>();
  EXPECT_THROW(SimulatedCamera camera(options), std::runtime_error);
}

}  // namespace
