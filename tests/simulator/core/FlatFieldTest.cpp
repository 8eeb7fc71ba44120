// When the shutter closes: on command, by the period, by the temperature, and never in the other modes.
#include "simulator/core/FlatField.h"

#include <gtest/gtest.h>

#include "CoreBench.h"

namespace {

using namespace simulator;
using core_test::CoreBench;
using core_test::kMs;
using core_test::kSecond;
using core_test::wordBytes;

constexpr uint8_t kGainMode = 10;
constexpr uint8_t kFfcMode = 11;
constexpr uint8_t kDoFfc = 12;
constexpr uint8_t kFfcPeriod = 13;
constexpr uint8_t kFfcDelta = 14;
constexpr uint64_t kShutterNs = 500 * kMs;

/// The default core is a fast one: 30 frames a second.
constexpr uint64_t kPeriodNs = 10 * kSecond;
const core_test::Bytes kPeriodFrames{0x01, 0x2C, 0x00, 0x1E};  // 300 frames in high gain, 30 in low gain

TEST(FlatField, Command_ClosesTheShutterForItsTimeAndIsCounted) {
  CoreBench bench;
  EXPECT_FALSE(bench.core.shutterClosed());
  EXPECT_EQ(bench.ask(kDoFfc).payload, wordBytes(0));
  EXPECT_TRUE(bench.core.shutterClosed());
  EXPECT_EQ(bench.core.ffcCount(), 1U);
  bench.pass(kShutterNs - 1);
  EXPECT_TRUE(bench.core.shutterClosed());
  bench.pass(1);
  EXPECT_FALSE(bench.core.shutterClosed());
}

TEST(FlatField, SecondCommandWhileClosed_StartsTheTimeAgain) {
  CoreBench bench;
  bench.ask(kDoFfc);
  bench.pass(kShutterNs - 1);
  bench.ask(kDoFfc);
  EXPECT_EQ(bench.core.ffcCount(), 2U);
  bench.pass(kShutterNs - 1);
  EXPECT_TRUE(bench.core.shutterClosed());
}

TEST(FlatField, ShutterTime_IsAnOption) {
  CoreOptions options = CoreBench::quietOptions();
  options.shutter_ms = 20;
  CoreBench bench(options);
  bench.ask(kDoFfc);
  bench.pass(20 * kMs);
  EXPECT_FALSE(bench.core.shutterClosed());
}

TEST(FlatField, AutomaticMode_CorrectsAtEachPeriod) {
  CoreBench bench;
  bench.ask(kFfcPeriod, kPeriodFrames);
  bench.pass(kPeriodNs - 1);
  EXPECT_EQ(bench.core.ffcCount(), 0U);
  bench.pass(1);
  EXPECT_EQ(bench.core.ffcCount(), 1U);
  EXPECT_TRUE(bench.core.shutterClosed());
  bench.pass(5 * kPeriodNs);
  EXPECT_EQ(bench.core.ffcCount(), 6U) << "those of a time when nobody looked are made up for";
}

TEST(FlatField, LowGain_HasAPeriodOfItsOwn) {
  CoreBench bench;
  bench.ask(kFfcPeriod, kPeriodFrames);
  bench.ask(kGainMode, wordBytes(1));
  bench.pass(kSecond);
  EXPECT_EQ(bench.core.ffcCount(), 1U);
}

TEST(FlatField, PeriodOfZero_NeverCorrectsByTime) {
  CoreBench bench;
  bench.ask(kFfcPeriod, wordBytes(0));
  bench.pass(100'000 * kSecond);
  EXPECT_EQ(bench.core.ffcCount(), 0U);
}

TEST(FlatField, PeriodShorterThanTheShutter_CorrectsOncePerShutterTime) {
  CoreBench bench;
  bench.ask(kFfcPeriod, wordBytes(1));
  bench.pass(10 * kSecond);
  EXPECT_LE(bench.core.ffcCount(), 21U);
  EXPECT_GE(bench.core.ffcCount(), 19U);
}

TEST(FlatField, OtherModes_NeverCorrectByThemselves) {
  for (const uint16_t mode : {uint16_t{0}, uint16_t{2}}) {
    CoreBench bench{CoreOptions{}};
    bench.ask(kFfcMode, wordBytes(mode));
    bench.ask(kFfcPeriod, kPeriodFrames);
    bench.pass(3600 * kSecond);
    EXPECT_EQ(bench.core.ffcCount(), 0U) << mode;
    bench.ask(kDoFfc);
    EXPECT_EQ(bench.core.ffcCount(), 1U) << mode;
  }
}

TEST(FlatField, WarmingUp_CorrectsAfterEachTemperatureDelta) {
  CoreBench bench{CoreOptions{}};
  bench.ask(kFfcPeriod, wordBytes(0));
  bench.ask(kFfcDelta, wordBytes(2));
  bench.pass(3600 * kSecond);
  // From 25 to 34 degrees there are four whole steps of two.
  EXPECT_EQ(bench.core.ffcCount(), 4U);
}

TEST(FlatField, DeltaOfZero_NeverCorrectsByTemperature) {
  CoreBench bench{CoreOptions{}};
  bench.ask(kFfcPeriod, wordBytes(0));
  bench.ask(kFfcDelta, wordBytes(0));
  bench.pass(3600 * kSecond);
  EXPECT_EQ(bench.core.ffcCount(), 0U);
}

TEST(FlatField, Reset_KeepsTheShutterClosedUntilTheCoreIsBack) {
  CoreBench bench;
  bench.ask(2);
  bench.pass(1500 * kMs - 1);
  EXPECT_TRUE(bench.core.shutterClosed());
  bench.pass(1);
  EXPECT_FALSE(bench.core.shutterClosed());
  EXPECT_EQ(bench.core.ffcCount(), 0U);
}

TEST(FlatField, Drift_IsMeasuredFromTheLastCorrection) {
  FlatField flat_field(
      kShutterNs, [](uint64_t now_ns) { return 20.0 + static_cast<double>(now_ns) * 1e-9; }, 0);
  EXPECT_DOUBLE_EQ(flat_field.driftCelsius(3 * kSecond), 3.0);
  flat_field.correct(3 * kSecond);
  EXPECT_DOUBLE_EQ(flat_field.driftCelsius(3 * kSecond), 0.0);
  EXPECT_DOUBLE_EQ(flat_field.driftCelsius(5 * kSecond), 2.0);
}

TEST(FlatField, VeryLongTime_IsCaughtUpWithInFewSteps) {
  uint64_t looks = 0;
  FlatField flat_field(
      kShutterNs, [&looks](uint64_t) { return static_cast<double>(++looks > 0 ? 20 : 0); }, 0);
  FlatFieldRules rules;
  rules.delta_celsius = 2;
  flat_field.advance(rules, 1'000'000 * kSecond);
  EXPECT_LT(looks, 1100U);
}

}  // namespace
