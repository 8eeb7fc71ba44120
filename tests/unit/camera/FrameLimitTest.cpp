// The frame limit of cameras of the slow class, to the millisecond.
#include "tests/unit/ScriptedTest.h"
#include "tests/unit/camera/ScriptedCamera.h"

namespace {

using scripted::network;
using scripted::passTime_ms;
using scripted::Retrieval;
using testing::ElementsAre;
using testing::IsEmpty;

class FrameLimitTest : public ScriptedCameraTest {
 protected:
  FrameLimitTest() {
    camera_.Connect();
    passTime_ms(kStart_ms - time_.now_ns() / 1'000'000);  // what the core's start-up took
    log().clear();
  }
  ~FrameLimitTest() override { camera_.Disconnect(); }

  Log waitsOfNextFrame() {
    network().retrievals.push_back(Retrieval{uint8_t{1}, {}, 0});
    camera_.RetreiveBuffer();
    return take({"nanosleep", "usleep", "sleep"});
  }

  ScriptedCamera camera_{info(), "", "00", "ABCC1703"};
};

TEST_F(FrameLimitTest, RetreiveBuffer_ThirtyMillisecondsAfterTheLast_SleepsSeventy) {
  passTime_ms(150);
  EXPECT_THAT(waitsOfNextFrame(), IsEmpty());
  passTime_ms(30);
  EXPECT_THAT(waitsOfNextFrame(), ElementsAre("nanosleep 70000000 ns"));
}

TEST_F(FrameLimitTest, RetreiveBuffer_AroundTheBoundary_SleepsUpToNinetyNine) {
  passTime_ms(99);
  EXPECT_THAT(waitsOfNextFrame(), ElementsAre("nanosleep 1000000 ns"));
  passTime_ms(99);  // 100 ms since the last reading: 1 slept, 99 passed
  EXPECT_THAT(waitsOfNextFrame(), IsEmpty());
  passTime_ms(150);
  EXPECT_THAT(waitsOfNextFrame(), IsEmpty());
}

TEST_F(FrameLimitTest, RetreiveBuffer_AtOnceAgain_SleepsTheWholePeriod) {
  passTime_ms(100);
  EXPECT_THAT(waitsOfNextFrame(), IsEmpty());
  EXPECT_THAT(waitsOfNextFrame(), ElementsAre("nanosleep 100000000 ns"));
}

TEST_F(FrameLimitTest, RetreiveBuffer_KeepsTheTimeBeforeTheSleep) {
  passTime_ms(30);
  EXPECT_THAT(waitsOfNextFrame(), ElementsAre("nanosleep 70000000 ns"));
  EXPECT_EQ(camera_.lastFrameTime, kStart_ms + 30);
  // Spaced from that reading, not from the hand-out at +100 ms: the next frame at +110 ms waits 20 ms, not 90.
  passTime_ms(10);
  EXPECT_THAT(waitsOfNextFrame(), ElementsAre("nanosleep 20000000 ns"));
}

TEST_F(FrameLimitTest, RetreiveBuffer_FirstFrame_IsSpacedFromConnect) {
  passTime_ms(40);
  EXPECT_THAT(waitsOfNextFrame(), ElementsAre("nanosleep 60000000 ns"));
}

TEST_F(FrameLimitTest, RetreiveBuffer_ClockSetBack_SleepsAsMuchLonger) {
  passTime_ms(-1500);
  // 1600 ms, in whole seconds and nanoseconds.
  EXPECT_THAT(waitsOfNextFrame(), ElementsAre("nanosleep 1600000000 ns"));
}

TEST_F(FrameLimitTest, RetreiveBuffer_ElapsedBeyond32Bits_CountsOnlyItsLow32Bits) {
  passTime_ms((int64_t{1} << 32) + 10);
  EXPECT_THAT(waitsOfNextFrame(), ElementsAre("nanosleep 90000000 ns"));
}

TEST_F(FrameLimitTest, RetreiveBuffer_Timeout_IsLimitedAsWell) {
  network().retrievals = {Retrieval{std::nullopt, PvResult(PvResult::Code::Timeout, "none"), 20}};
  camera_.RetreiveBuffer();
  EXPECT_THAT(take({"PvPipeline", "nanosleep"}),
              ElementsAre("PvPipeline::RetrieveNextBuffer 1000", "nanosleep 80000000 ns"));
}

TEST_F(FrameLimitTest, RetreiveBuffer_TimeSpentWaitingForTheFrame_Counts) {
  network().retrievals = {Retrieval{uint8_t{1}, {}, 120}};
  camera_.RetreiveBuffer();
  EXPECT_THAT(take({"nanosleep"}), IsEmpty());
}

TEST_F(FrameLimitTest, RetreiveBuffer_OtherClasses_AreNeverLimited) {
  for (const char* const serial : {"ABCC1702", "ABCD1703", "ABCE1703"}) {
    ScriptedCamera fast(info(), "", "00", serial);
    fast.Connect();
    network().retrievals = {Retrieval{uint8_t{1}, {}, 0}, Retrieval{uint8_t{2}, {}, 0}};
    fast.RetreiveBuffer();
    fast.RetreiveBuffer();
    EXPECT_THAT(take({"nanosleep"}), IsEmpty()) << serial;
    fast.Disconnect();
    log().clear();
  }
}

TEST_F(FrameLimitTest, RetreiveBuffer_FramesAlwaysReady_ComeInPairs) {
  // The oddity of keeping the time before the sleep: a frame that had to wait lets the next one through at once.
  passTime_ms(100);
  for (int pair = 0; pair < 3; ++pair) {
    EXPECT_THAT(waitsOfNextFrame(), IsEmpty());
    EXPECT_THAT(waitsOfNextFrame(), ElementsAre("nanosleep 100000000 ns"));
  }
  EXPECT_EQ(time_.now_ns() / 1'000'000, kStart_ms + 100 + 300);
}

}  // namespace
