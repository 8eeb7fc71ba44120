// What the core's settings and temperature make of its response.
#include <gtest/gtest.h>

#include "CoreBench.h"

namespace {

using namespace simulator;
using core_test::CoreBench;
using core_test::kSecond;
using core_test::wordBytes;

constexpr uint8_t kGain = 10;
constexpr uint8_t kRadiometry = 142;
constexpr uint8_t kParameters = 229;

CoreResponse responseOf(CoreBench& bench) {
  static uint64_t block = 0;
  return bench.core.nextVideo(++block).response;
}

TEST(CoreResponse, Factory_IsHighGainAndRadiance) {
  CoreBench bench;
  const CoreResponse response = responseOf(bench);
  EXPECT_FALSE(response.low_gain);
  EXPECT_EQ(response.scale, PixelScale::Radiance);
  EXPECT_EQ(response.object.emissivity, 1.0);
  EXPECT_EQ(response.object.reflected_celsius, 22.0);
  EXPECT_EQ(response.object.atmospheric_celsius, 22.0);
  EXPECT_EQ(response.core_degrees, 25);
}

TEST(CoreResponse, GainModeOneOnly_IsLowGain) {
  CoreBench bench;
  for (const uint16_t mode : {uint16_t{1}, uint16_t{0}, uint16_t{1}, uint16_t{2}, uint16_t{1}, uint16_t{3}}) {
    ASSERT_EQ(bench.statusOf(kGain, wordBytes(mode)), 0);
    EXPECT_EQ(responseOf(bench).low_gain, mode == 1) << mode;
  }
}

TEST(CoreResponse, RadiometryMode_IsSeenWithItsResolution) {
  CoreBench bench;
  ASSERT_EQ(bench.statusOf(kRadiometry, {0x00, 0x10, 0x00, 0x01}), 0);
  EXPECT_EQ(responseOf(bench).scale, PixelScale::Radiance) << "the resolution alone changes nothing";
  ASSERT_EQ(bench.statusOf(kRadiometry, {0x00, 0x40, 0x00, 0x01}), 0);
  EXPECT_EQ(responseOf(bench).scale, PixelScale::KelvinTimes25);
  ASSERT_EQ(bench.statusOf(kRadiometry, {0x00, 0x10, 0x00, 0x00}), 0);
  EXPECT_EQ(responseOf(bench).scale, PixelScale::KelvinTimes2p5);
  ASSERT_EQ(bench.statusOf(kRadiometry, {0x00, 0x40, 0x00, 0x00}), 0);
  EXPECT_EQ(responseOf(bench).scale, PixelScale::Radiance);
}

TEST(CoreResponse, ObjectParameters_AreInTheirUnits) {
  CoreBench bench;
  ASSERT_EQ(bench.statusOf(kParameters, {0x01, 0x00, 0x1E, 0x66}), 0);  // 7782
  ASSERT_EQ(bench.statusOf(kParameters, {0x01, 0x07, 0x17, 0x70}), 0);  // 6000
  ASSERT_EQ(bench.statusOf(kParameters, {0x01, 0x05, 0x08, 0x1B}), 0);  // 2075
  const CoreObjectParameters object = responseOf(bench).object;
  EXPECT_NEAR(object.emissivity, 0.94995, 0.00001);
  EXPECT_EQ(object.reflected_celsius, 60);
  EXPECT_EQ(object.atmospheric_celsius, 20.75);
}

TEST(CoreResponse, CoresTemperature_IsTheNearestDegreeToWhatItAnswers) {
  struct Case {
    double sensor_celsius;
    int32_t degrees;
  };
  for (const Case& at : {Case{37.4, 37}, Case{37.44, 37}, Case{37.45, 38}, Case{37.5, 38}, Case{0.4, 0}, Case{-0.5, 0},
                         Case{-3.0, -3}, Case{75.0, 75}}) {
    CoreOptions options = CoreBench::quietOptions();
    options.thermal.sensor.start_celsius = at.sensor_celsius;
    CoreBench bench(options);
    EXPECT_EQ(responseOf(bench).core_degrees, at.degrees) << at.sensor_celsius;
  }
}

TEST(CoreResponse, WarmingCore_GoesFromRowToRow) {
  CoreBench bench{CoreOptions{}};
  const int32_t cold = responseOf(bench).core_degrees;
  bench.pass(600 * kSecond);
  EXPECT_GT(responseOf(bench).core_degrees, cold + 5);
}

TEST(CoreResponse, WhileTheShutterIsClosed_IsThatOfTheFrozenPicture) {
  CoreBench bench;
  responseOf(bench);
  bench.ask(12);
  ASSERT_EQ(bench.statusOf(kGain, wordBytes(1)), 0);
  EXPECT_FALSE(responseOf(bench).low_gain);
  bench.pass(kSecond);
  EXPECT_TRUE(responseOf(bench).low_gain);
}

}  // namespace
