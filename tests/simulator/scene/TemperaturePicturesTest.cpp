// Pictures are what the response makes of each pixel's temperature, whatever is kept between them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "simulator/Scene.h"
#include "simulator/core/VideoPicture.h"
#include "simulator/scene/PixelResponse.h"
#include "simulator/scene/SceneText.h"

namespace {

using namespace simulator;

constexpr ImageSize kSensor{64, 48};
using Picture = std::vector<uint16_t>;
constexpr std::size_t kPixels = std::size_t{kSensor.width} * kSensor.height;

Scene sceneOf(const std::string& text) {
  SceneSettings settings;
  settings.sensor = kSensor;
  settings.temperatures = parseScene(text);
  return Scene(settings);
}

Picture render(const Scene& scene, uint64_t frame, const CoreResponse& core) {
  return scene.render(kSensor.width, kSensor.height, frame, TestPattern::Off, core);
}

/// Whether no pixel is further from its exact value than rounding takes it.
testing::AssertionResult isExact(const Scene& scene, uint64_t frame, const CoreResponse& core) {
  const PixelResponse response(scene.temperatures()->settings(), core);
  const Picture picture = render(scene, frame, core);
  for (uint32_t i = 0; i < picture.size(); ++i) {
    const double celsius = scene.temperatures()->celsiusAt(i % kSensor.width, i / kSensor.width, frame);
    const double exact = std::clamp(response.countsFor(celsius), 0.0, 16383.0);
    if (std::fabs(picture[i] - exact) <= 0.502) continue;
    return testing::AssertionFailure() << "pixel " << i << " is " << picture[i] << " for " << exact;
  }
  return testing::AssertionSuccess();
}

std::vector<CoreResponse> coreStates() {
  std::vector<CoreResponse> states(4);
  states[1].low_gain = true;
  states[2].scale = PixelScale::KelvinTimes25;
  states[3].scale = PixelScale::KelvinTimes2p5;
  states[3].object = {0.9, 30, 10};
  return states;
}

TEST(TemperaturePictures, EveryPixel_IsWhatTheResponseMakesOfItsTemperature) {
  for (const char* text : {"uniform:celsius=54.5217", "gradient:low=-40,high=170", "gradient:low=200,high=1500",
                           "hot-spot:high=150", "hot-spot:period=40", "blackbodies:plates=7"}) {
    const Scene scene = sceneOf(text);
    for (const CoreResponse& core : coreStates()) {
      for (const uint64_t frame : {1U, 2U, 15U}) EXPECT_TRUE(isExact(scene, frame, core)) << text;
    }
  }
}

TEST(TemperaturePictures, CoresStateThatChangesAndComesBack_IsSeenAtOnce) {
  const Scene scene = sceneOf("gradient");
  const std::vector<CoreResponse> states = coreStates();
  std::vector<Picture> first;
  first.reserve(states.size());
  for (const CoreResponse& core : states) first.push_back(render(scene, 1, core));
  for (std::size_t i = 0; i < states.size(); ++i) {
    EXPECT_EQ(render(scene, 2, states[i]), first[i]);
    EXPECT_NE(first[i], first[(i + 1) % first.size()]);
  }
}

TEST(TemperaturePictures, WellKnownCounts_ComeOut) {
  CoreResponse core;
  EXPECT_EQ(render(sceneOf("uniform:celsius=54.5217"), 1, core), Picture(kPixels, 5000));
  EXPECT_EQ(render(sceneOf("uniform:celsius=16.0846"), 1, core), Picture(kPixels, 3000));
  core.scale = PixelScale::KelvinTimes25;
  core.object = {0.95, 20, 20};
  EXPECT_EQ(render(sceneOf("uniform:celsius=19.45"), 1, core), Picture(kPixels, 7315));
}

TEST(TemperaturePictures, Values_AreRoundedToNearestAndHeldInFourteenBits) {
  // 54.5217 degrees are 5000.002 counts; a count here is 0.0172 degrees.
  EXPECT_EQ(render(sceneOf("uniform:celsius=54.5298"), 1, {})[0], 5000);
  EXPECT_EQ(render(sceneOf("uniform:celsius=54.5304"), 1, {})[0], 5001);
  EXPECT_EQ(render(sceneOf("uniform:celsius=200"), 1, {})[0], 16383);
  CoreResponse core;
  core.scale = PixelScale::KelvinTimes25;
  core.object = {0.95, 20, 20};
  EXPECT_EQ(render(sceneOf("uniform:celsius=400"), 1, core)[0], 16383);
  core.object.reflected_celsius = 600;
  EXPECT_EQ(render(sceneOf("uniform:celsius=-40"), 1, core)[0], 0);
}

TEST(TemperaturePictures, Window_IsTheTopLeftOfTheWholePicture) {
  for (const char* text : {"gradient", "hot-spot:period=9"}) {
    const Scene scene = sceneOf(text);
    const Picture whole = render(scene, 3, {});
    const Picture window = scene.render(20, 10, 3);
    for (std::ptrdiff_t y = 0; y < 10; ++y) {
      ASSERT_TRUE(std::equal(window.begin() + y * 20, window.begin() + (y + 1) * 20, whole.begin() + y * 64)) << text;
    }
    EXPECT_THROW(scene.render(65, 48, 1), std::invalid_argument);
  }
}

TEST(TemperaturePictures, CamerasOwnPattern_TakesTheScenesPlace) {
  const Picture picture = sceneOf("uniform").render(64, 48, 1, TestPattern::GreyHorizontalRamp);
  EXPECT_EQ(picture[0], 0);
  EXPECT_EQ(picture[63], 16383);
}

TEST(TrueTemperatures, FollowMirrorsWindowAndFrozenBlock) {
  const Scene scene = sceneOf("hot-spot:x=0.1,y=0.2,period=50");
  CoreVideo video;
  video.scene_block = 20;
  for (const bool upside_down : {false, true}) {
    for (const bool left_to_right : {false, true}) {
      video.upside_down = upside_down;
      video.left_to_right = left_to_right;
      const Picture picture = renderVideo(scene, 40, 30, video);
      const std::vector<double> celsius = trueTemperatures(scene, 40, 30, video);
      ASSERT_EQ(celsius.size(), picture.size());
      const PixelResponse response(scene.temperatures()->settings(), video.response);
      for (std::size_t i = 0; i < picture.size(); ++i) {
        ASSERT_NEAR(picture[i], response.countsFor(celsius[i]), 0.502) << i;
      }
      const double expected = scene.temperatures()->celsiusAt(left_to_right ? 63 : 0, upside_down ? 47 : 0, 20);
      EXPECT_EQ(celsius[0], expected);
    }
  }
}

TEST(TrueTemperatures, OfTheMovingScene_AreRefused) {
  SceneSettings settings;
  settings.sensor = kSensor;
  EXPECT_THROW(trueTemperatures(Scene(settings), 64, 48, {}), std::invalid_argument);
  EXPECT_THROW(trueTemperatures(sceneOf("uniform"), 65, 48, {}), std::invalid_argument);
}

TEST(TemperatureVideo, Drift_IsSmallerInLowGain) {
  const Scene scene = sceneOf("uniform:celsius=50");
  CoreVideo video;
  video.drift_millikelvin = 2000;
  const auto span = [&] {
    const Picture picture = renderVideo(scene, 64, 48, video);
    const auto [low, high] = std::minmax_element(picture.begin(), picture.end());
    return *high - *low;
  };
  EXPECT_GT(span(), 40);
  video.response.low_gain = true;
  EXPECT_GT(span(), 2);
  EXPECT_LT(span(), 10);
}

}  // namespace
