// The scene is a pure function, lies in 14 bits, moves, and shows its patterns.
#include "simulator/Scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace simulator;

SceneSettings settingsOf(ImageSize sensor, uint64_t seed = 1) {
  SceneSettings settings;
  settings.sensor = sensor;
  settings.seed = seed;
  return settings;
}

TEST(Scene, SameSettingsAndIndex_GiveTheSamePicture) {
  const Scene first(settingsOf({336, 256}));
  const Scene second(settingsOf({336, 256}));
  const auto picture = first.render(336, 256, 7);
  first.render(336, 256, 8);
  EXPECT_EQ(first.render(336, 256, 7), picture);
  EXPECT_EQ(second.render(336, 256, 7), picture);
}

TEST(Scene, OtherSeedOrIndex_GivesAnotherPicture) {
  const Scene scene(settingsOf({160, 128}));
  EXPECT_NE(scene.render(160, 128, 1), scene.render(160, 128, 2));
  EXPECT_NE(scene.render(160, 128, 1), Scene(settingsOf({160, 128}, 2)).render(160, 128, 1));
}

TEST(Scene, EverySensorAndPattern_StaysInFourteenBits) {
  for (const ImageSize sensor : {ImageSize{640, 512}, {336, 256}, {320, 256}, {160, 128}}) {
    const Scene scene(settingsOf(sensor));
    for (uint32_t pattern = 0; pattern < 4; ++pattern) {
      for (const uint64_t index : {1U, 90U, 270U, 65535U}) {
        const auto picture = scene.render(sensor.width, sensor.height, index, static_cast<TestPattern>(pattern));
        ASSERT_EQ(picture.size(), std::size_t{sensor.width} * sensor.height);
        EXPECT_LE(*std::max_element(picture.begin(), picture.end()), 16383);
      }
    }
  }
}

TEST(Scene, Window_IsTheTopLeftOfTheWholePicture) {
  const Scene scene(settingsOf({160, 128}));
  const auto whole = scene.render(160, 128, 42);
  const auto window = scene.render(100, 70, 42);
  for (std::ptrdiff_t y = 0; y < 70; ++y) {
    ASSERT_TRUE(std::equal(window.begin() + y * 100, window.begin() + (y + 1) * 100, whole.begin() + y * 160)) << y;
  }
}

TEST(Scene, WindowLargerThanTheSensorOrEmpty_Throws) {
  const Scene scene(settingsOf({160, 128}));
  EXPECT_THROW(scene.render(161, 128, 1), std::invalid_argument);
  EXPECT_THROW(scene.render(160, 0, 1), std::invalid_argument);
}

TEST(Scene, HottestPlace_Moves) {
  SceneSettings settings = settingsOf({160, 128});
  settings.noise_counts = 0;
  const Scene scene(settings);
  const auto hottest = [&scene](uint64_t index) {
    const auto picture = scene.render(160, 128, index);
    return (std::max_element(picture.begin(), picture.end()) - picture.begin()) % 160;
  };
  EXPECT_GT(std::abs(hottest(90) - hottest(270)), 40);
}

TEST(Scene, Noise_HasTheChosenDeviation) {
  SceneSettings quiet = settingsOf({160, 128});
  quiet.noise_counts = 0;
  const auto clean = Scene(quiet).render(160, 128, 5);
  const auto noisy = Scene(settingsOf({160, 128})).render(160, 128, 5);
  double squares = 0;
  for (std::size_t i = 0; i < clean.size(); ++i) squares += std::pow(static_cast<double>(noisy[i]) - clean[i], 2);
  EXPECT_NEAR(std::sqrt(squares / static_cast<double>(clean.size())), 12.0, 0.5);
}

TEST(Scene, HorizontalRamp_RunsFromEdgeToEdge) {
  const auto picture = Scene(settingsOf({160, 128})).render(160, 128, 1, TestPattern::GreyHorizontalRamp);
  EXPECT_EQ(picture[0], 0);
  EXPECT_EQ(picture[159], 16383);
  EXPECT_TRUE(std::is_sorted(picture.begin(), picture.begin() + 160));
  EXPECT_TRUE(std::equal(picture.begin(), picture.begin() + 160, picture.begin() + 160));
}

}  // namespace
