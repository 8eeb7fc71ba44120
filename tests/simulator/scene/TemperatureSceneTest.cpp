// Where which temperature is.
#include "simulator/scene/TemperatureScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "simulator/Scene.h"
#include "simulator/calibration/TemperatureCorrection.h"
#include "simulator/scene/SceneText.h"

namespace {

using namespace simulator;

constexpr ImageSize kSensor{161, 121};

TemperatureScene sceneOf(const std::string& text) { return {parseScene(text), kSensor}; }

TEST(TemperatureScene, Uniform_IsTheSameEverywhere) {
  const TemperatureScene scene = sceneOf("uniform:celsius=-12.5");
  for (const uint32_t x : {0U, 80U, 160U}) EXPECT_EQ(scene.celsiusAt(x, x / 2, 9), -12.5);
  EXPECT_EQ(scene.lowestCelsius(), -12.5);
  EXPECT_EQ(scene.highestCelsius(), -12.5);
}

TEST(TemperatureScene, Gradient_HasKnownCornersAndIsEvenBetween) {
  const TemperatureScene scene = sceneOf("gradient:low=-20,high=140");
  EXPECT_DOUBLE_EQ(scene.celsiusAt(0, 0, 1), -20);
  EXPECT_DOUBLE_EQ(scene.celsiusAt(160, 120, 1), 140);
  EXPECT_DOUBLE_EQ(scene.celsiusAt(160, 0, 1), 60);
  EXPECT_DOUBLE_EQ(scene.celsiusAt(0, 120, 1), 60);
  EXPECT_DOUBLE_EQ(scene.celsiusAt(80, 60, 1), 60);
  EXPECT_NEAR(scene.celsiusAt(41, 0, 1) - scene.celsiusAt(40, 0, 1), 0.5, 1e-12);
}

TEST(TemperatureScene, HotSpot_IsHotInItsDiscAndCoolOutside) {
  const TemperatureScene scene = sceneOf("hot-spot:low=22,high=87.5,x=0.25,y=0.5,size=0.2");
  // The disc's radius is 12.1 pixels.
  EXPECT_EQ(scene.celsiusAt(40, 60, 1), 87.5);
  EXPECT_EQ(scene.celsiusAt(51, 60, 1), 87.5);
  EXPECT_EQ(scene.celsiusAt(40, 71, 1), 87.5);
  const double edge = scene.celsiusAt(56, 60, 1);
  EXPECT_LT(edge, 87.4);
  EXPECT_GT(edge, 60);
  EXPECT_NEAR(scene.celsiusAt(160, 60, 1), 22, 1e-6);
  EXPECT_TRUE(scene.still());
  EXPECT_EQ(scene.celsiusAt(40, 60, 1), scene.celsiusAt(40, 60, 500));
}

TEST(TemperatureScene, HotSpotWithAPeriod_HeatsAndCools) {
  const TemperatureScene scene = sceneOf("hot-spot:low=20,high=80,period=100");
  EXPECT_FALSE(scene.still());
  EXPECT_NEAR(scene.celsiusAt(80, 60, 100), 20, 1e-9);
  EXPECT_NEAR(scene.celsiusAt(80, 60, 25), 50, 1e-9);
  EXPECT_NEAR(scene.celsiusAt(80, 60, 50), 80, 1e-9);
  EXPECT_NEAR(scene.celsiusAt(80, 60, 150), 80, 1e-9);
}

TEST(TemperatureScene, Blackbodies_StandInARowFromLowToHigh) {
  const TemperatureScene scene = sceneOf("blackbodies:low=10,high=70,plates=4,background=5");
  for (uint32_t plate = 0; plate < 4; ++plate) {
    const auto centre = static_cast<uint32_t>(161 * (plate + 0.5) / 4);
    EXPECT_EQ(scene.celsiusAt(centre, 60, 1), 10 + 20 * plate) << plate;
    EXPECT_EQ(scene.celsiusAt(centre + 13, 60 - 13, 1), 10 + 20 * plate) << plate;
    EXPECT_EQ(scene.celsiusAt(centre, 60 - 16, 1), 5) << plate;
  }
  EXPECT_EQ(scene.celsiusAt(40, 60, 1), 5) << "between two plates";
  EXPECT_EQ(scene.lowestCelsius(), 5);
  EXPECT_EQ(scene.highestCelsius(), 70);
  EXPECT_EQ(sceneOf("blackbodies:plates=1,low=40").celsiusAt(80, 60, 1), 40);
}

TEST(TemperatureScene, EveryScene_StaysBetweenItsLowestAndHighest) {
  for (const char* text : {"uniform", "gradient", "hot-spot", "hot-spot:period=7,x=0,y=1", "blackbodies:background=200",
                           "gradient:low=50,high=50"}) {
    const TemperatureScene scene = sceneOf(text);
    for (uint32_t y = 0; y < kSensor.height; ++y) {
      for (uint32_t x = 0; x < kSensor.width; ++x) {
        const double celsius = scene.celsiusAt(x, y, 3);
        ASSERT_GE(celsius, scene.lowestCelsius() - 1e-9) << text;
        ASSERT_LE(celsius, scene.highestCelsius() + 1e-9) << text;
      }
    }
  }
}

TEST(TemperatureScene, CorrectionWithoutInverse_IsRefused) {
  CalibrationPoints points{};
  // As much is taken away as comes: every temperature is corrected to 0.
  for (auto& row : points[1]) row = {0, -1, 0, 0, 0};
  TemperatureSceneSettings settings = parseScene("gradient:low=20,high=30");
  settings.correction = std::make_shared<TemperatureCorrection>(points, 2);
  EXPECT_THROW(TemperatureScene(settings, kSensor), std::invalid_argument);
  settings.low_gain_range = CalibrationRange::High;
  EXPECT_NO_THROW(TemperatureScene(settings, kSensor)) << "the range is not used";
}

TEST(TemperatureScene, SettingsOutOfBounds_AreRefused) {
  TemperatureSceneSettings settings;
  settings.surroundings.emissivity = 0;
  EXPECT_THROW(TemperatureScene(settings, kSensor), std::invalid_argument);
  settings = {};
  settings.low_gain_range = CalibrationRange::Low;
  EXPECT_THROW(TemperatureScene(settings, kSensor), std::invalid_argument);
}

}  // namespace
