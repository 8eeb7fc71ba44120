// A lens' correction as a value, and its inverse.
#include "radiometry/LensCorrection.h"

#include <cstring>
#include <random>

#include "tests/unit/radiometry/RadiometryTest.h"

namespace {

using keocam::LensCorrection;

constexpr double kLowest = -40.0;
constexpr double kHighest = 550.0;

class LensCorrectionTest : public RadiometryTest {
 protected:
  static LensCorrection of(unsigned int range, const std::vector<double>& points, bool slopes_valid, double slope = 0) {
    CalibrationStruct lens;
    lens.slopesValid = slopes_valid ? 1 : 0;
    std::copy(points.begin(), points.end(), lens.data[range][5]);
    if (range < 2) lens.slopes[range][5] = slope;
    return {lens, static_cast<RangeModes>(range), 5};
  }
};

TEST_F(LensCorrectionTest, None_IsItsOwnInverse) {
  const LensCorrection none;
  EXPECT_EQ(none.corrected(36.6), 36.6);
  EXPECT_EQ(none.uncorrected(36.6, kLowest, kHighest), 36.6);
  EXPECT_TRUE(std::isnan(none.uncorrected(kHighest + 1, kLowest, kHighest)));
  EXPECT_TRUE(std::isnan(none.uncorrected(kNaN, kLowest, kHighest)));
}

TEST_F(LensCorrectionTest, EveryForm_RoundTrips) {
  const std::vector<LensCorrection> corrections = {
      of(0, {0.7, 0.02, 9, 9, 9}, false),              // One line.
      of(0, {-1.5, 0.03, 9, 0.9, -0.01}, true, 60.0),  // Two that meet at 60.
      of(1, {0.4, 0.01, 9, -1.0, 0.03}, true, 70.0),   //
      of(1, {0.4, 0.01, 1e-5, -2e-8, 1e-11}, false),   // Quartic.
      of(2, {3.0, -0.02, 4e-5, -1e-8, 1e-11}, true),   //
  };
  for (std::size_t i = 0; i < corrections.size(); ++i) {
    for (double temperature = kLowest; temperature <= kHighest; temperature += 0.737) {
      const double corrected = corrections[i].corrected(temperature);
      EXPECT_NEAR(corrections[i].uncorrected(corrected, kLowest, kHighest), temperature, 1e-9) << i;
    }
  }
}

TEST_F(LensCorrectionTest, Gap_IsTheSwitchOver) {
  const LensCorrection jump = of(0, {0.0, 0.0, 9, 5.0, 0.0}, true, 60.0);
  EXPECT_EQ(jump.uncorrected(59.9, kLowest, kHighest), 59.9);
  EXPECT_EQ(jump.uncorrected(62.0, kLowest, kHighest), 60.0);
  EXPECT_EQ(jump.uncorrected(65.0, kLowest, kHighest), 60.0);
  EXPECT_EQ(jump.uncorrected(65.5, kLowest, kHighest), 60.5);
}

TEST_F(LensCorrectionTest, Overlap_IsTheLowerLine) {
  const LensCorrection drop = of(0, {0.0, 0.0, 9, -5.0, 0.0}, true, 60.0);
  EXPECT_EQ(drop.uncorrected(58.0, kLowest, kHighest), 58.0);
  EXPECT_EQ(drop.uncorrected(60.0, kLowest, kHighest), 65.0);
}

TEST_F(LensCorrectionTest, BeyondTheBounds_IsNone) {
  const LensCorrection quartic = of(2, {0, 0, 0, 0, 0}, true);
  EXPECT_EQ(quartic.uncorrected(kLowest, kLowest, kHighest), kLowest);
  EXPECT_EQ(quartic.uncorrected(kHighest, kLowest, kHighest), kHighest);
  EXPECT_TRUE(std::isnan(quartic.uncorrected(kLowest - 0.1, kLowest, kHighest)));
  EXPECT_TRUE(std::isnan(quartic.uncorrected(kHighest + 0.1, kLowest, kHighest)));
}

TEST_F(LensCorrectionTest, AnyNumbers_EndInATemperatureOrNone) {
  std::mt19937_64 random(20260101);
  const auto number = [&random] {
    double value = 0;
    const uint64_t bits = random();
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&value, &bits, sizeof value);
    return value;
  };
  for (int i = 0; i < 1500; ++i) {
    const unsigned int range = static_cast<unsigned int>(random() % 3);
    const LensCorrection correction =
        of(range, {number(), number(), number(), number(), number()}, random() % 2 == 0, number());
    const double lowest = i % 3 == 0 ? number() : kLowest;
    const double highest = i % 3 == 0 ? number() : kHighest;
    const double found = correction.uncorrected(number(), lowest, highest);
    EXPECT_TRUE(std::isnan(found) || (found >= lowest && found <= highest)) << i;
  }
}

TEST_F(LensCorrectionTest, Rows) {
  EXPECT_EQ(keocam::calibrationRow(37.4), 37U);
  EXPECT_EQ(keocam::calibrationRow(37.5), 38U);
  EXPECT_EQ(keocam::calibrationRow(-3.0), 0U);
  EXPECT_EQ(keocam::calibrationRow(75.0), 59U);
  EXPECT_EQ(keocam::calibrationRow(kNaN), 0U);
}

}  // namespace
