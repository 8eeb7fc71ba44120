// Rates, loss and raw values of a stream, with times of the test's own.
#include "apps/keocam/frames/FrameStatistics.h"

#include <gtest/gtest.h>

namespace keocam::cli {
namespace {

constexpr int64_t kFrameTime_ns = 40'000'000;  // 25 frames per second

RawStatistics flat(uint16_t counts) { return {10, uint64_t{10} * counts, counts, counts}; }

TEST(FrameStatistics, NoFrames_HaveNoRate) {
  FrameStatistics statistics;
  EXPECT_EQ(statistics.total().frames, 0U);
  EXPECT_FALSE(statistics.total().frames_per_second);
  EXPECT_FALSE(statistics.endPeriod().frames_per_second);
}

TEST(FrameStatistics, OneFrame_HasNoRateYet) {
  FrameStatistics statistics;
  statistics.addFrame(1, 0, flat(5));
  EXPECT_FALSE(statistics.total().frames_per_second);
  EXPECT_FALSE(statistics.endPeriod().frames_per_second);
}

TEST(FrameStatistics, SteadyFrames_GiveTheExactRateInEveryPeriod) {
  FrameStatistics statistics;
  uint64_t id = 0;
  for (const int frames : {25, 26, 1, 24}) {
    for (int i = 0; i < frames; ++i) {
      statistics.addFrame(id + 1, static_cast<int64_t>(id) * kFrameTime_ns, flat(5));
      ++id;
    }
    const StreamPeriod period = statistics.endPeriod();
    EXPECT_EQ(period.frames, static_cast<uint64_t>(frames));
    EXPECT_DOUBLE_EQ(period.frames_per_second.value(), 25.0) << frames << " frames in the period";
  }
  EXPECT_DOUBLE_EQ(statistics.total().frames_per_second.value(), 25.0);
  EXPECT_EQ(statistics.total().frames, 76U);
}

TEST(FrameStatistics, PeriodWithoutFrames_HasNoRateNorRawValues) {
  FrameStatistics statistics;
  statistics.addFrame(1, 0, flat(5));
  statistics.addFrame(2, kFrameTime_ns, flat(5));
  statistics.endPeriod();
  const StreamPeriod empty = statistics.endPeriod();
  EXPECT_EQ(empty.frames, 0U);
  EXPECT_FALSE(empty.frames_per_second);
  EXPECT_EQ(empty.raw.pixels, 0U);
}

TEST(FrameStatistics, Loss_IsCountedInItsPeriodAndInAll) {
  FrameStatistics statistics;
  statistics.addFrame(1, 0, flat(5));
  statistics.addFrame(4, 1, flat(5));
  EXPECT_EQ(statistics.endPeriod().frames_lost, 2U);
  statistics.addFrame(5, 2, flat(5));
  EXPECT_EQ(statistics.endPeriod().frames_lost, 0U);
  EXPECT_EQ(statistics.total().frames_lost, 2U);
  EXPECT_EQ(statistics.missingBlockIds(), 2U);
}

TEST(FrameStatistics, GivenUpFrames_AreNotCountedTwice) {
  FrameStatistics statistics;
  statistics.addFrame(1, 0, flat(5));
  statistics.addFrame(3, 1, flat(5));
  statistics.setGivenUp(1);
  EXPECT_EQ(statistics.total().frames_lost, 1U) << "the frame given up is the one whose number is missing";
  statistics.setGivenUp(4);
  EXPECT_EQ(statistics.total().frames_lost, 4U) << "also those after the last frame received";
  EXPECT_EQ(statistics.endPeriod().frames_lost, 4U);
  EXPECT_EQ(statistics.endPeriod().frames_lost, 0U);
}

TEST(FrameStatistics, RawValues_CoverThePeriodAndAll) {
  FrameStatistics statistics;
  statistics.addFrame(1, 0, flat(100));
  statistics.endPeriod();
  statistics.addFrame(2, 1, flat(300));
  statistics.addFrame(3, 2, std::nullopt);
  EXPECT_EQ(statistics.endPeriod().raw.min_counts, 300);
  EXPECT_EQ(statistics.total().raw.min_counts, 100);
  EXPECT_EQ(statistics.total().raw.max_counts, 300);
  EXPECT_DOUBLE_EQ(statistics.total().raw.mean_counts(), 200.0);
  EXPECT_EQ(statistics.total().frames, 3U);
}

}  // namespace
}  // namespace keocam::cli
