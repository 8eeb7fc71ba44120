// How warm the core is over time, and how it says so.
#include "simulator/core/CoreTemperatures.h"

#include <gtest/gtest.h>

#include <cmath>

#include "CoreBench.h"

namespace {

using namespace simulator;
using core_test::CoreBench;
using core_test::kSecond;

constexpr uint64_t kSeed = 5;

CoreTemperatures after(uint64_t seconds, const ThermalProfile& profile = {}) {
  return temperaturesAt(profile, kSeed, seconds * kSecond);
}

TEST(CoreTemperatures, PowerOn_IsExactlyTheStart) {
  const ThermalProfile profile;
  EXPECT_EQ(after(0).sensor_celsius, profile.sensor.start_celsius);
  EXPECT_EQ(after(0).housing_celsius, profile.housing.start_celsius);
  EXPECT_EQ(after(0).shutter_celsius, profile.shutter.start_celsius);
}

TEST(CoreTemperatures, OneTimeConstant_IsNearlyTwoThirdsOfTheWay) {
  const ThermalProfile profile;
  const double expected = 34.0 - 9.0 * std::exp(-1.0);
  EXPECT_NEAR(after(240).sensor_celsius, expected, profile.wander_celsius);
}

TEST(CoreTemperatures, AfterHours_StayWithinTheWanderOfTheSteadyTemperature) {
  const ThermalProfile profile;
  double lowest = 100;
  double highest = 0;
  for (uint64_t second = 20'000; second < 20'200; ++second) {
    const CoreTemperatures now = after(second);
    EXPECT_NEAR(now.sensor_celsius, profile.sensor.steady_celsius, profile.wander_celsius + 1e-6);
    EXPECT_NEAR(now.housing_celsius, profile.housing.steady_celsius, profile.wander_celsius + 1e-6);
    EXPECT_NEAR(now.shutter_celsius, profile.shutter.steady_celsius, profile.wander_celsius + 1e-6);
    lowest = std::min(lowest, now.sensor_celsius);
    highest = std::max(highest, now.sensor_celsius);
  }
  EXPECT_GT(highest - lowest, profile.wander_celsius) << "they do wander";
}

TEST(CoreTemperatures, Still_NeverChange) {
  ThermalProfile profile;
  profile.still = true;
  for (const uint64_t seconds : {0U, 10U, 100000U}) {
    EXPECT_EQ(after(seconds, profile).sensor_celsius, profile.sensor.start_celsius);
    EXPECT_EQ(after(seconds, profile).shutter_celsius, profile.shutter.start_celsius);
  }
}

TEST(CoreTemperatures, SameSeedAndTime_AreTheSameAndOtherSeedsDiffer) {
  EXPECT_EQ(after(500).sensor_celsius, after(500).sensor_celsius);
  EXPECT_NE(after(500).sensor_celsius, temperaturesAt({}, kSeed + 1, 500 * kSecond).sensor_celsius);
}

TEST(CoreTemperatures, Words_AreRoundedTwosComplementAndHeldAtTheEnds) {
  EXPECT_EQ(tenths(30.04), 300);
  EXPECT_EQ(tenths(30.06), 301);
  EXPECT_EQ(hundredths(-2.0), 0xFF38);
  EXPECT_EQ(hundredths(400.0), 0x7FFF);
  EXPECT_EQ(hundredths(-400.0), 0x8000);
}

TEST(CoreTemperatures, Readings_CarryTheirUnits) {
  CoreOptions options = CoreBench::quietOptions();
  options.thermal.sensor.start_celsius = 30.0;
  options.thermal.housing.start_celsius = 28.25;
  options.thermal.shutter.start_celsius = 29.5;
  CoreBench bench(options);
  EXPECT_EQ(bench.word(32, {0x00, 0x00}), 300);
  EXPECT_EQ(bench.word(32, {0x00, 0x0A}), 2825);
  EXPECT_EQ(bench.word(77), 2950);
}

TEST(CoreTemperatures, Readings_FollowTheClock) {
  CoreBench bench{CoreOptions{}};
  EXPECT_EQ(bench.word(32, {0x00, 0x00}), 250);
  bench.pass(3600 * kSecond);
  EXPECT_NEAR(bench.word(32, {0x00, 0x00}), 340, 1);
  EXPECT_NEAR(bench.core.temperatures().sensor_celsius, 34.0, 0.06);
}

}  // namespace
