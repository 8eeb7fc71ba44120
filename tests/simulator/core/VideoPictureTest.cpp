// What the core does to a picture, pixel by pixel.
#include "simulator/core/VideoPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <stdexcept>

namespace {

using namespace simulator;

constexpr ImageSize kSensor{64, 48};
using Picture = std::vector<uint16_t>;

class VideoPicture : public ::testing::Test {
 protected:
  VideoPicture() { video.scene_block = 7; }
  static SceneSettings settings() {
    SceneSettings settings;
    settings.sensor = kSensor;
    return settings;
  }
  Picture render(uint32_t width = kSensor.width, uint32_t height = kSensor.height) const {
    return renderVideo(scene, width, height, video);
  }
  static uint16_t at(const Picture& picture, uint32_t x, uint32_t y, uint32_t width = kSensor.width) {
    return picture[std::size_t{y} * width + x];
  }
  const Scene scene{settings()};
  const Picture plain = scene.render(kSensor.width, kSensor.height, 7);
  CoreVideo video;
};

TEST_F(VideoPicture, NothingSet_IsTheScene) { EXPECT_EQ(render(), plain); }

TEST_F(VideoPicture, SceneBlock_ChoosesTheScene) {
  video.scene_block = 8;
  EXPECT_EQ(render(), scene.render(kSensor.width, kSensor.height, 8));
}

TEST_F(VideoPicture, Drift_AddsOffsetsByColumnAndRow) {
  video.drift_millikelvin = 2000;
  video.offset_seed = 3;
  const Picture picture = render();
  for (uint32_t y = 0; y < kSensor.height; ++y) {
    for (uint32_t x = 0; x < kSensor.width; ++x) {
      ASSERT_EQ(at(picture, x, y), at(plain, x, y) + 2 * columnOffset(3, x) + 2 * rowOffset(3, y)) << x << " " << y;
    }
  }
}

TEST_F(VideoPicture, Drift_IsSeenUpToItsLargestAndChangesSignWithIt) {
  video.drift_millikelvin = 50'000;
  const Picture warm = render();
  video.drift_millikelvin = -kLargestDriftMillikelvin;
  const Picture cold = render();
  int largest = 0;
  for (std::size_t i = 0; i < plain.size(); ++i) {
    EXPECT_EQ(warm[i] - plain[i], plain[i] - cold[i]);
    largest = std::max(largest, std::abs(warm[i] - plain[i]));
  }
  EXPECT_GT(largest, 20);
  EXPECT_LT(largest, 50);
}

TEST_F(VideoPicture, Offsets_DifferBetweenColumnsRowsAndSeeds) {
  std::set<int32_t> columns;
  int differing = 0;
  for (uint32_t i = 0; i < 640; ++i) {
    columns.insert(columnOffset(1, i));
    differing += columnOffset(1, i) != rowOffset(1, i) && columnOffset(1, i) != columnOffset(2, i) ? 1 : 0;
  }
  EXPECT_EQ(columns.size(), 17U);
  EXPECT_EQ(*columns.begin(), -8);
  EXPECT_EQ(*columns.rbegin(), 8);
  EXPECT_GT(differing, 320);
}

TEST_F(VideoPicture, UpsideDownAndLeftToRight_MirrorTheSensor) {
  for (const bool upside_down : {false, true}) {
    for (const bool left_to_right : {false, true}) {
      video.upside_down = upside_down;
      video.left_to_right = left_to_right;
      const Picture picture = render();
      for (uint32_t y = 0; y < kSensor.height; ++y) {
        for (uint32_t x = 0; x < kSensor.width; ++x) {
          const uint32_t from_x = left_to_right ? kSensor.width - 1 - x : x;
          const uint32_t from_y = upside_down ? kSensor.height - 1 - y : y;
          ASSERT_EQ(at(picture, x, y), at(plain, from_x, from_y)) << x << " " << y;
        }
      }
    }
  }
}

TEST_F(VideoPicture, Window_ShowsTheTopLeftOfTheWholePicture) {
  video.drift_millikelvin = 1500;
  for (const bool mirrored : {false, true}) {
    video.upside_down = video.left_to_right = mirrored;
    const Picture whole = render();
    const Picture part = render(20, 10);
    for (uint32_t y = 0; y < 10; ++y) {
      for (uint32_t x = 0; x < 20; ++x) ASSERT_EQ(at(part, x, y, 20), at(whole, x, y)) << mirrored;
    }
  }
}

TEST_F(VideoPicture, ValueMask_LeavesTheUpperBits) {
  video.value_mask = 0x3FC0;
  const Picture picture = render();
  for (std::size_t i = 0; i < plain.size(); ++i) EXPECT_EQ(picture[i], plain[i] / 64 * 64);
}

TEST_F(VideoPicture, Patterns_TakeTheScenesPlace) {
  video.drift_millikelvin = 2000;
  video.pattern = CorePattern::HorizontalRamp;
  EXPECT_EQ(at(render(), 0, 5), 0);
  EXPECT_EQ(at(render(), 63, 5), 16383);
  video.pattern = CorePattern::VerticalRamp;
  EXPECT_EQ(at(render(), 9, 0), 0);
  EXPECT_EQ(at(render(), 9, 47), 16383);
  video.pattern = CorePattern::DiagonalRamp;
  EXPECT_EQ(at(render(), 10, 20), 480);
  video.pattern = CorePattern::Checkerboard;
  EXPECT_EQ(at(render(), 0, 0), 4095);
  EXPECT_EQ(at(render(), 16, 0), 12285);
  EXPECT_EQ(at(render(), 16, 16), 4095);
  for (const CorePattern bars : {CorePattern::VerticalBars, CorePattern::HorizontalBars}) {
    video.pattern = bars;
    const Picture picture = render();
    EXPECT_EQ(std::set<uint16_t>(picture.begin(), picture.end()).size(), 8U);
  }
}

TEST_F(VideoPicture, WindowThatDoesNotFit_Throws) {
  EXPECT_THROW(render(0, 1), std::invalid_argument);
  EXPECT_THROW(render(65, 48), std::invalid_argument);
  video.upside_down = true;
  EXPECT_THROW(render(64, 49), std::invalid_argument);
}

}  // namespace
