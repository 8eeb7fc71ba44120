// What the core says about each block's picture: freeze, drift, mirrors, patterns.
#include <gtest/gtest.h>

#include "CoreBench.h"

namespace {

using namespace simulator;
using core_test::CoreBench;
using core_test::kMs;
using core_test::kSecond;
using core_test::wordBytes;

constexpr uint8_t kDoFfc = 12;

TEST(CoreVideo, QuietCore_ShowsEachBlockAsItIs) {
  CoreBench bench;
  const CoreVideo video = bench.core.nextVideo(5);
  EXPECT_EQ(video.scene_block, 5U);
  EXPECT_FALSE(video.frozen);
  EXPECT_EQ(video.drift_millikelvin, 0);
  EXPECT_EQ(video.pattern, CorePattern::Off);
  EXPECT_FALSE(video.upside_down || video.left_to_right);
  EXPECT_EQ(video.value_mask, 0x3FFF);
}

TEST(CoreVideo, ShutterClosed_ShowsTheLastBlockBefore) {
  CoreBench bench;
  bench.core.nextVideo(9);
  bench.ask(kDoFfc);
  for (uint64_t block = 10; block < 15; ++block) {
    const CoreVideo video = bench.core.nextVideo(block);
    EXPECT_TRUE(video.frozen) << block;
    EXPECT_EQ(video.scene_block, 9U) << block;
    bench.pass(100 * kMs);
  }
  const CoreVideo after = bench.core.nextVideo(15);
  EXPECT_FALSE(after.frozen);
  EXPECT_EQ(after.scene_block, 15U);
}

TEST(CoreVideo, ShutterClosedBetweenStreams_FreezesWhatIsSeenThen) {
  CoreBench bench;
  EXPECT_EQ(bench.core.nextVideo(9).response.scale, PixelScale::Radiance);
  bench.ask(142, {0x00, 0x10, 0x00, 0x01});
  bench.ask(142, {0x00, 0x40, 0x00, 0x01});
  bench.ask(kDoFfc);
  bench.ask(142, {0x00, 0x40, 0x00, 0x00});  // too late to be seen
  const CoreVideo video = bench.core.nextVideo(1);
  EXPECT_TRUE(video.frozen);
  EXPECT_EQ(video.response.scale, PixelScale::KelvinTimes25);
  bench.pass(600 * kMs);
  EXPECT_EQ(bench.core.nextVideo(2).response.scale, PixelScale::Radiance);
}

TEST(CoreVideo, StreamStartedWhileClosed_StaysAtItsFirstBlock) {
  CoreBench bench;
  bench.ask(kDoFfc);
  EXPECT_EQ(bench.core.nextVideo(1).scene_block, 1U);
  EXPECT_TRUE(bench.core.nextVideo(2).frozen);
  EXPECT_EQ(bench.core.nextVideo(2).scene_block, 1U);
}

TEST(CoreVideo, Correction_RemovesTheDriftButNotFromTheFrozenPicture) {
  CoreBench bench{CoreOptions{}};
  bench.ask(11, wordBytes(0));
  bench.pass(600 * kSecond);
  const CoreVideo drifted = bench.core.nextVideo(1);
  EXPECT_GT(drifted.drift_millikelvin, 5000);
  bench.ask(kDoFfc);
  EXPECT_EQ(bench.core.nextVideo(2).drift_millikelvin, drifted.drift_millikelvin);
  bench.pass(kSecond);
  EXPECT_LT(std::abs(bench.core.nextVideo(3).drift_millikelvin), 50);
}

TEST(CoreVideo, AutomaticCorrection_FreezesThePictureByItself) {
  CoreBench bench;
  bench.ask(13, wordBytes(300));
  bench.core.nextVideo(1);
  bench.pass(10 * kSecond);
  EXPECT_TRUE(bench.core.nextVideo(2).frozen);
}

TEST(CoreVideo, Settings_AreSeenInThePicture) {
  CoreBench bench;
  bench.ask(17, wordBytes(1));
  EXPECT_TRUE(bench.core.nextVideo(1).upside_down);
  EXPECT_FALSE(bench.core.nextVideo(2).left_to_right);
  bench.ask(17, wordBytes(2));
  EXPECT_FALSE(bench.core.nextVideo(3).upside_down);
  EXPECT_TRUE(bench.core.nextVideo(4).left_to_right);
  bench.ask(37, wordBytes(6));
  EXPECT_EQ(bench.core.nextVideo(5).pattern, CorePattern::Checkerboard);
  bench.ask(18, {0x06, 0x01});
  EXPECT_EQ(bench.core.nextVideo(6).value_mask, 0x3FC0);
  bench.ask(18, {0x06, 0x00});
  EXPECT_EQ(bench.core.nextVideo(7).value_mask, 0x3FFF);
}

TEST(CoreVideo, LastBlocks_CanBeLookedUp) {
  CoreBench bench;
  for (uint64_t block = 1; block <= VideoHistory::kBlocks + 1; ++block) bench.core.nextVideo(block);
  EXPECT_FALSE(bench.core.videoOf(1).has_value());
  ASSERT_TRUE(bench.core.videoOf(2).has_value());
  EXPECT_EQ(bench.core.videoOf(2)->scene_block, 2U);
  EXPECT_FALSE(bench.core.videoOf(10'000).has_value());
}

TEST(CoreVideo, BlockIdsThatBeginAgain_GiveTheLatest) {
  CoreBench bench;
  bench.core.nextVideo(1);
  bench.ask(17, wordBytes(3));
  bench.core.nextVideo(1);
  EXPECT_TRUE(bench.core.videoOf(1)->upside_down);
}

}  // namespace
