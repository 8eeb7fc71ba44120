// Frames in the application's hands: contents, accounting, time-outs, stopping and starting.
#include <gtest/gtest.h>

#include <cstring>
#include <thread>

#include "tests/pv/TestCamera.h"

namespace {

using pv_test::Code;
using std::chrono::milliseconds;

class PipelineTest : public testing::Test {
 protected:
  PipelineTest() : camera_(pv_test::smallCamera()), connection_(camera_.options()) {}
  void SetUp() override { ASSERT_TRUE(connection_.ok()); }
  PvPipeline& pipeline() { return *connection_.pipeline; }

  PvBuffer* retrieve(unsigned int timeout_ms = 2000) {
    PvBuffer* buffer = nullptr;
    PvResult fared;
    const PvResult result = pipeline().RetrieveNextBuffer(&buffer, timeout_ms, &fared);
    EXPECT_TRUE(result.IsOK()) << pv_test::textOf(result);
    EXPECT_EQ(result.GetCode(), fared.GetCode());
    return buffer;
  }

  Code refusal(unsigned int timeout_ms) {
    PvBuffer* buffer = nullptr;
    PvResult fared;
    const PvResult result = pipeline().RetrieveNextBuffer(&buffer, timeout_ms, &fared);
    EXPECT_EQ(buffer, nullptr);
    return result.GetCode();
  }

  simulator::SimulatedCamera camera_;
  pv_test::Connection connection_;
};

TEST_F(PipelineTest, Retrieve_Frames_HaveTheCamerasPixelsAndDetails) {
  const simulator::Scene scene(camera_.sceneSettings());
  ASSERT_TRUE(connection_.start().IsOK());
  uint64_t last_block = 0;
  for (int frame = 0; frame < 20; ++frame) {
    PvBuffer* const buffer = retrieve();
    ASSERT_NE(buffer, nullptr);
    const auto details = keocam::detailsOf(*buffer);
    EXPECT_GT(details.block_id, last_block);
    last_block = details.block_id;
    EXPECT_EQ(details.width, 160U);
    EXPECT_EQ(details.height, 120U);
    EXPECT_EQ(details.pixel_format, 0x01100025U);
    EXPECT_EQ(details.size, 160U * 120U * 2U);
    EXPECT_GT(details.device_timestamp_ns, 0U);
    EXPECT_GT(details.host_timestamp_ns, 0U);
    const auto expected = scene.render(160, 120, details.block_id);
    EXPECT_EQ(std::memcmp(buffer->GetDataPointer(), expected.data(), details.size), 0) << details.block_id;
    EXPECT_TRUE(pipeline().ReleaseBuffer(buffer).IsOK());
  }
  EXPECT_GE(connection_.statistics().frames_complete, 20U);
  EXPECT_GT(connection_.statistics().packets_received, 20U);
}

TEST_F(PipelineTest, Retrieve_HoldingAllThatItMay_WaitsAndIsNoBuffer) {
  ASSERT_TRUE(connection_.start().IsOK());
  PvBuffer* const first = retrieve();
  PvBuffer* const second = retrieve();
  ASSERT_NE(first, second);
  Code code = Code::Ok;
  const double took_ms = pv_test::durationOf([&] { code = refusal(200); });
  EXPECT_EQ(code, Code::NoBuffer);
  EXPECT_GE(took_ms, 199);
  EXPECT_LT(took_ms, 220 + pv_test::kScheduling_ms);
  EXPECT_TRUE(pipeline().ReleaseBuffer(first).IsOK());
  PvBuffer* const third = retrieve();
  EXPECT_NE(third, second);
}

TEST_F(PipelineTest, Retrieve_AnotherThreadReleases_GoesOn) {
  ASSERT_TRUE(connection_.start().IsOK());
  PvBuffer* const first = retrieve();
  retrieve();
  std::thread releases([&] {
    std::this_thread::sleep_for(milliseconds(100));
    EXPECT_TRUE(pipeline().ReleaseBuffer(first).IsOK());
  });
  EXPECT_NE(retrieve(), nullptr);
  releases.join();
}

TEST_F(PipelineTest, Release_NotInTheApplicationsHands_IsRefusedHarmlessly) {
  ASSERT_TRUE(connection_.start().IsOK());
  PvBuffer* const buffer = retrieve();
  int unrelated = 0;
  EXPECT_EQ(pipeline().ReleaseBuffer(nullptr).GetCode(), Code::InvalidParameter);
  EXPECT_EQ(pipeline().ReleaseBuffer(reinterpret_cast<PvBuffer*>(&unrelated)).GetCode(), Code::InvalidParameter);
  EXPECT_TRUE(pipeline().ReleaseBuffer(buffer).IsOK());
  EXPECT_EQ(pipeline().ReleaseBuffer(buffer).GetCode(), Code::InvalidParameter);
  EXPECT_NE(retrieve(), nullptr);
}

TEST_F(PipelineTest, Retrieve_NothingComes_KeepsTheTimeOut) {
  ASSERT_TRUE(pipeline().Start().IsOK());
  for (const unsigned int timeout_ms : {0U, 50U, 500U}) {
    Code code = Code::Ok;
    const double took_ms = pv_test::durationOf([&] { code = refusal(timeout_ms); });
    EXPECT_EQ(code, Code::Timeout);
    EXPECT_GE(took_ms, timeout_ms - 1.0);
    EXPECT_LT(took_ms, timeout_ms + 20 + pv_test::kScheduling_ms);
  }
}

TEST_F(PipelineTest, Start_FramesHaveGrownSinceTheBufferSizeWasSet_DeliversThemWhole) {
  const simulator::Scene scene(camera_.sceneSettings());
  ASSERT_TRUE(connection_.features().SetIntegerValue("Width", 80).IsOK());
  ASSERT_TRUE(pipeline().SetBufferSize(static_cast<unsigned int>(connection_.device->GetPayloadSize())).IsOK());
  for (const unsigned int width : {80U, 160U, 80U, 160U}) {
    ASSERT_TRUE(connection_.features().SetIntegerValue("Width", width).IsOK());
    ASSERT_TRUE(connection_.start().IsOK());
    for (int frame = 0; frame < 10; ++frame) {
      PvBuffer* const buffer = retrieve();
      ASSERT_NE(buffer, nullptr) << width;
      const auto details = keocam::detailsOf(*buffer);
      ASSERT_EQ(details.size, width * 120U * 2U);
      if (width == 160) {
        const auto expected = scene.render(160, 120, details.block_id);
        EXPECT_EQ(std::memcmp(buffer->GetDataPointer(), expected.data(), details.size), 0) << details.block_id;
      }
      EXPECT_TRUE(pipeline().ReleaseBuffer(buffer).IsOK());
    }
    ASSERT_TRUE(connection_.stop().IsOK());
  }
}

TEST_F(PipelineTest, Start_SmallerFramesThanBuffers_DeliversTheSmallerFrames) {
  ASSERT_TRUE(connection_.features().SetIntegerValue("Width", 80).IsOK());
  ASSERT_TRUE(connection_.start().IsOK());
  PvBuffer* const buffer = retrieve();
  ASSERT_NE(buffer, nullptr);
  EXPECT_EQ(keocam::detailsOf(*buffer).size, 80U * 120U * 2U);
}

TEST_F(PipelineTest, StopAndStart_DeliverNoFrameFromBefore) {
  uint64_t last_ns = 0;
  for (int run = 0; run < 5; ++run) {
    ASSERT_TRUE(connection_.start().IsOK());
    EXPECT_TRUE(pipeline().IsStarted());
    EXPECT_FALSE(pipeline().Start().IsOK());
    for (int frame = 0; frame < 3; ++frame) {
      PvBuffer* const buffer = retrieve();
      ASSERT_NE(buffer, nullptr) << "run " << run;
      EXPECT_GT(keocam::detailsOf(*buffer).host_timestamp_ns, last_ns);
      EXPECT_TRUE(pipeline().ReleaseBuffer(buffer).IsOK());
    }
    std::this_thread::sleep_for(milliseconds(60));  // Frames pile up unretrieved.
    ASSERT_TRUE(connection_.stop().IsOK());
    EXPECT_FALSE(pipeline().IsStarted());
    last_ns = static_cast<uint64_t>(
        std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::system_clock::now().time_since_epoch())
            .count());
    EXPECT_EQ(refusal(30), Code::Timeout);
  }
}

TEST_F(PipelineTest, Stop_WhileTheCameraSendsOn_DeliversNoOldFrameAfterTheNextStart) {
  ASSERT_TRUE(connection_.start().IsOK());
  EXPECT_TRUE(pipeline().ReleaseBuffer(retrieve()).IsOK());
  ASSERT_TRUE(pipeline().Stop().IsOK());
  std::this_thread::sleep_for(milliseconds(300));
  const auto restart = std::chrono::system_clock::now().time_since_epoch();
  ASSERT_TRUE(pipeline().Start().IsOK());
  PvBuffer* const buffer = retrieve();
  ASSERT_NE(buffer, nullptr);
  const std::chrono::nanoseconds began(keocam::detailsOf(*buffer).host_timestamp_ns);
  EXPECT_GT(began + milliseconds(20), restart);
}

TEST_F(PipelineTest, Buffers_HeldAtStop_AreTakenBackAgainAndAgain) {
  for (int run = 0; run < 6; ++run) {
    ASSERT_TRUE(connection_.start().IsOK());
    PvBuffer* const first = retrieve();
    PvBuffer* const second = retrieve();
    ASSERT_TRUE(first != nullptr && second != nullptr) << "run " << run;
    EXPECT_EQ(refusal(0), Code::NoBuffer);
    const uint8_t first_byte = *first->GetDataPointer();
    ASSERT_TRUE(connection_.stop().IsOK());
    EXPECT_EQ(*first->GetDataPointer(), first_byte);
    EXPECT_EQ(pipeline().ReleaseBuffer(first).GetCode(), Code::InvalidParameter);
    if (run % 2 == 0) continue;
    ASSERT_TRUE(pipeline().Start().IsOK());
    EXPECT_EQ(pipeline().ReleaseBuffer(second).GetCode(), Code::InvalidParameter);
    ASSERT_TRUE(pipeline().Stop().IsOK());
  }
}

TEST_F(PipelineTest, Buffers_WhileStarted_CannotBeChanged) {
  ASSERT_TRUE(connection_.start().IsOK());
  EXPECT_EQ(pipeline().SetBufferSize(50000).GetCode(), Code::AccessDenied);
  EXPECT_EQ(pipeline().SetBufferCount(3).GetCode(), Code::AccessDenied);
}

// An application may look at the last buffer that it had even after it gave that back.
TEST_F(PipelineTest, Buffers_FromBeforeAGrowth_AreStillObjects) {
  ASSERT_TRUE(connection_.features().SetIntegerValue("Width", 80).IsOK());
  ASSERT_TRUE(pipeline().SetBufferSize(80 * 120 * 2).IsOK());
  ASSERT_TRUE(connection_.start().IsOK());
  PvBuffer* const old = retrieve();
  ASSERT_NE(old, nullptr);
  ASSERT_TRUE(pipeline().ReleaseBuffer(old).IsOK());
  ASSERT_TRUE(connection_.stop().IsOK());
  ASSERT_TRUE(connection_.features().SetIntegerValue("Width", 160).IsOK());
  ASSERT_TRUE(pipeline().Start().IsOK());
  uint8_t* const memory = old->GetDataPointer();
  ASSERT_NE(memory, nullptr);
  EXPECT_EQ(memory[160 * 120 * 2 - 1], 0) << "larger memory, in which nothing has arrived";
  EXPECT_EQ(pipeline().ReleaseBuffer(old).GetCode(), Code::InvalidParameter);
}

// All frames that the wait takes belong to the new run, which must keep every buffer.
TEST_F(PipelineTest, Retrieve_WaitSpansStopAndStart_KeepsAllBuffersInTheRun) {
  for (int round = 0; round < 10; ++round) {
    ASSERT_TRUE(pipeline().Start().IsOK());
    PvBuffer* early = nullptr;
    std::thread waits([&] { early = retrieve(3000); });
    std::this_thread::sleep_for(milliseconds(20));  // Long enough to be inside the wait; if not, the round proves less.
    ASSERT_TRUE(pipeline().Stop().IsOK());
    const uint64_t sent_before = camera_.statistics()[simulator::Counter::Frame];
    ASSERT_TRUE(connection_.start().IsOK());
    waits.join();
    ASSERT_NE(early, nullptr);
    // The first frame of the run: the wait has thrown none away.
    EXPECT_EQ(keocam::detailsOf(*early).block_id, sent_before + 1) << "round " << round;
    ASSERT_TRUE(connection_.stop().IsOK());
  }
}

TEST_F(PipelineTest, Destruction_StartedAndHeld_IsSafe) {
  ASSERT_TRUE(connection_.start().IsOK());
  retrieve();
  connection_.pipeline.reset();
  std::this_thread::sleep_for(milliseconds(100));  // The camera goes on sending.
  EXPECT_TRUE(connection_.device->IsConnected());
  connection_.pipeline = std::make_unique<PvPipeline>(connection_.stream.get());
  ASSERT_TRUE(pipeline().SetBufferSize(38400).IsOK());
  ASSERT_TRUE(pipeline().Start().IsOK());
  EXPECT_NE(retrieve(), nullptr);
}

TEST_F(PipelineTest, SetBuffers_UnacceptableNumbers_AreRefused) {
  EXPECT_EQ(pipeline().SetBufferCount(0).GetCode(), Code::InvalidParameter);
  EXPECT_EQ(pipeline().SetBufferCount(1U << 30).GetCode(), Code::InvalidParameter);
  EXPECT_EQ(pipeline().SetBufferSize(0).GetCode(), Code::InvalidParameter);
  EXPECT_EQ(pipeline().RetrieveNextBuffer(nullptr, 10, nullptr).GetCode(), Code::InvalidParameter);
  EXPECT_FALSE(pipeline().Stop().IsOK());
}

TEST_F(PipelineTest, SlowApplication_CountsFramesWithoutABuffer) {
  ASSERT_TRUE(connection_.start().IsOK());
  retrieve();
  retrieve();
  EXPECT_TRUE(pv_test::eventually([&] { return connection_.statistics().frames_no_buffer >= 5; }, milliseconds(3000)));
  // Sixty frames a second fill the eight buffers first, so there are fewer than were sent.
  EXPECT_LT(connection_.statistics().frames_no_buffer, camera_.statistics()[simulator::Counter::Frame]);
}

}  // namespace
