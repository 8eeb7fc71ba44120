// A lens' correction as a host makes it, and its inverse.
#include "simulator/calibration/TemperatureCorrection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace {

using namespace simulator;

constexpr CalibrationRange kRanges[] = {CalibrationRange::Low, CalibrationRange::Middle, CalibrationRange::High};

/// All rows alike but for the first coefficient, which grows by a hundredth from row to row.
CalibrationPoints pointsOf(const CalibrationRow& low, const CalibrationRow& middle, const CalibrationRow& high) {
  CalibrationPoints points{};
  const CalibrationRow rows[] = {low, middle, high};
  for (std::size_t range = 0; range < kCalibrationRanges; ++range) {
    for (std::size_t row = 0; row < kCalibrationRows; ++row) {
      points[range][row] = rows[range];
      points[range][row][0] += 0.01F * static_cast<float>(row);
    }
  }
  return points;
}

TEST(TemperatureCorrection, BeforeVersionThree_IsALineThenPolynomials) {
  const CalibrationRow row{0.5F, 0.25F, 0.0625F, 0.0078125F, 0.0009765625F};
  const TemperatureCorrection correction(pointsOf(row, row, row), 2);
  const double polynomial = 4 + 0.5 + 0.25 * 4 + 0.0625 * 16 + 0.0078125 * 64 + 0.0009765625 * 256;
  EXPECT_DOUBLE_EQ(correction.corrected(CalibrationRange::Low, 0, 4), 4 + 0.5 + 0.25 * 4);
  EXPECT_DOUBLE_EQ(correction.corrected(CalibrationRange::Middle, 0, 4), polynomial);
  EXPECT_DOUBLE_EQ(correction.corrected(CalibrationRange::High, 0, 4), polynomial);
}

TEST(TemperatureCorrection, FromVersionThree_HasTwoLinesWithTheirSwitchOver) {
  // (4 - 0.5) / (0.5 - 0.25) = 14
  const CalibrationRow row{0.5F, 0.5F, 77.0F, 0.25F, 4.0F};
  const TemperatureCorrection correction(pointsOf(row, row, row), 3);
  for (const CalibrationRange range : {CalibrationRange::Low, CalibrationRange::Middle}) {
    EXPECT_DOUBLE_EQ(correction.corrected(range, 0, 13.99), 13.99 + 0.5 + 0.5 * 13.99);
    EXPECT_DOUBLE_EQ(correction.corrected(range, 0, 14), 14 + 0.25 + 4.0 * 14);
  }
  EXPECT_GT(correction.corrected(CalibrationRange::High, 0, 10), 7700) << "the high range is never in two lines";
}

TEST(TemperatureCorrection, FirstPointOfAllSaysNoSecondLine_NoRangeHasOne) {
  CalibrationPoints points = pointsOf({1, 0, 0, 2, 0}, {1, 0, 0, 2, 0}, {});
  points[0][0][3] = 0;
  const TemperatureCorrection correction(points, 3);
  EXPECT_NEAR(correction.corrected(CalibrationRange::Low, 10, 50), 51.1, 1e-6);
  EXPECT_NEAR(correction.corrected(CalibrationRange::Middle, 10, 2), 2 + 1.1 + 16, 1e-6);
}

TEST(TemperatureCorrection, CoresTemperature_ChoosesTheRowAndIsHeldInTheTable) {
  const TemperatureCorrection correction(pointsOf({}, {}, {}), 2);
  const auto added = [&](int32_t core_degrees) { return correction.corrected(CalibrationRange::Low, core_degrees, 0); };
  EXPECT_NEAR(added(0), 0.00, 1e-7);
  EXPECT_NEAR(added(37), 0.37, 1e-7);
  EXPECT_NEAR(added(59), 0.59, 1e-7);
  EXPECT_EQ(added(-3), added(0));
  EXPECT_EQ(added(75), added(59));
}

TEST(TemperatureCorrection, MadeUpCalibrations_AreUndoneExactly) {
  CalibrationOptions options;
  options.sensor = {8, 8};
  options.lenses = usualLenses(1, 1);
  for (options.seed = 1; options.seed <= 5; ++options.seed) {
    for (options.version = 2; options.version <= 3; ++options.version) {
      options.lenses[0].with_1500 = options.version == 3;
      const TemperatureCorrection correction(lensDataOf(options, 0).points, options.version);
      for (const CalibrationRange range : kRanges) {
        for (int32_t core = 0; core < 60; core += 7) {
          for (int degrees = -40; degrees <= 1500; degrees += 3) {
            const double celsius = degrees + 0.7;
            const double undone = correction.uncorrected(range, core, celsius);
            // Where the lines part a little, some temperatures are never reached exactly.
            ASSERT_NEAR(correction.corrected(range, core, undone), celsius, 1e-3) << options.seed << " " << celsius;
          }
        }
        EXPECT_NO_THROW(correction.checkInverse(range, -40, 1500));
      }
    }
  }
}

TEST(TemperatureCorrection, LinesThatPart_GiveTheNearestTemperature) {
  // Up to 10 degrees nothing is added, from 10 on 1 degree less a tenth of a degree each: 10 to 10.9 is never reached.
  const CalibrationRow row{0.0F, 0.0F, 0.0F, -0.01F, 0.1F};
  const TemperatureCorrection correction(pointsOf(row, row, {}), 3);
  constexpr CalibrationRange kLow = CalibrationRange::Low;
  const double over = 0.1F / 0.01F;
  EXPECT_NEAR(correction.corrected(kLow, 0, correction.uncorrected(kLow, 0, 9.5)), 9.5, 1e-9);
  EXPECT_NEAR(correction.corrected(kLow, 0, correction.uncorrected(kLow, 0, 12)), 12, 1e-9);
  EXPECT_NEAR(correction.corrected(kLow, 0, correction.uncorrected(kLow, 0, 10.2)), over, 1e-5);
  EXPECT_NEAR(correction.corrected(kLow, 0, correction.uncorrected(kLow, 0, 10.9)), over * 1.1 - 0.01, 1e-5);
}

TEST(TemperatureCorrection, WithoutAnInverse_IsRefusedWithThePlace) {
  CalibrationPoints points = pointsOf({}, {}, {});
  points[0][31] = {0, -1, 0, 0, 0};
  const TemperatureCorrection correction(points, 2);
  EXPECT_NO_THROW(correction.checkInverse(CalibrationRange::Middle, 20, 80));
  try {
    correction.checkInverse(CalibrationRange::Low, 20, 80);
    FAIL() << "the correction was taken";
  } catch (const std::invalid_argument& error) {
    EXPECT_EQ(std::string(error.what()),
              "the lens' calibration has no sound correction in the low range at 20 C with the core at 31 C; choose "
              "other temperatures, another lens or another calibration");
  }
}

}  // namespace
