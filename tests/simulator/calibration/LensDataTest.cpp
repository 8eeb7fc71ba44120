// The numbers of made-up calibrations are such as a real lens could have.
#include "simulator/calibration/LensData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace simulator;

constexpr std::array<std::array<double, 2>, kCalibrationRanges> kCelsius{{{-40, 150}, {-40, 650}, {400, 1500}}};

std::vector<double> samples(std::size_t range) {
  constexpr int kSteps = 200;
  std::vector<double> celsius(kSteps + 1);
  const auto [low, high] = kCelsius[range];
  for (int step = 0; step <= kSteps; ++step) {
    celsius[static_cast<std::size_t>(step)] = low + (high - low) * step / kSteps;
  }
  return celsius;
}

double line(const CalibrationRow& row, std::size_t first, double celsius) {
  return double{row[first]} + double{row[first + 1]} * celsius;
}

double polynomial(const CalibrationRow& row, double celsius) {
  double sum = 0;
  for (std::size_t point = kPointsPerRow; point-- > 0;) sum = sum * celsius + double{row[point]};
  return sum;
}

double switchOver(const CalibrationRow& row) {
  return (double{row[4]} - double{row[1]}) / (double{row[0]} - double{row[3]});
}

/// What a host adds to a temperature.
double correction(const LensData& data, std::size_t range, std::size_t row_index, double celsius, bool two_lines) {
  const CalibrationRow& row = data.points[range][row_index];
  if (range == 2 || (range == 1 && !two_lines)) return polynomial(row, celsius);
  return line(row, two_lines && celsius >= switchOver(row) ? 3 : 0, celsius);
}

class SeededLens : public ::testing::TestWithParam<uint64_t> {
 protected:
  SeededLens() {
    options.seed = GetParam();
    options.sensor = {64, 48};
    options.lenses = usualLenses(1, 1);
    data = lensDataOf(options, 0);
  }
  CalibrationOptions options;
  LensData data;
};

TEST_P(SeededLens, Corrections_AreSmallEverywhere) {
  for (std::size_t range = 0; range < kCalibrationRanges; ++range) {
    double largest = 0;
    for (std::size_t row = 0; row < kCalibrationRows; ++row) {
      for (const double celsius : samples(range)) {
        largest = std::max(largest, std::fabs(correction(data, range, row, celsius, true)));
      }
    }
    EXPECT_LT(largest, 2.0) << "range " << range;
    EXPECT_GT(largest, 0.01) << "range " << range;
  }
}

TEST_P(SeededLens, Corrections_OfOlderGrammarsAreSmallToo) {
  CalibrationOptions older = options;
  older.version = 2;
  older.lenses[0].with_1500 = false;
  const LensData old = lensDataOf(older, 0);
  for (std::size_t range = 0; range < 2; ++range) {
    for (std::size_t row = 0; row < kCalibrationRows; ++row) {
      for (const double celsius : samples(range)) {
        ASSERT_LT(std::fabs(correction(old, range, row, celsius, false)), 2.0) << range << " " << row;
      }
    }
  }
  EXPECT_EQ(old.points[2], LensData().points[2]);
}

TEST_P(SeededLens, SwitchOver_IsWhereTheLinesMeet) {
  for (std::size_t range = 0; range < 2; ++range) {
    for (const CalibrationRow& row : data.points[range]) {
      ASSERT_NE(row[3], 0.0F);
      const double celsius = switchOver(row);
      ASSERT_GT(celsius, 0.8);
      ASSERT_LT(celsius, 1.2);
      ASSERT_LT(std::fabs(line(row, 0, celsius) - line(row, 3, celsius)), 0.001);
      ASSERT_GT(std::fabs(line(row, 0, 100) - line(row, 3, 100)), 0.05) << "it is two lines";
    }
  }
}

TEST_P(SeededLens, Rows_ChangeSmoothlyWithTheCoresTemperature) {
  for (std::size_t range = 0; range < kCalibrationRanges; ++range) {
    const double celsius = kCelsius[range][1];
    double moved = 0;
    for (std::size_t row = 1; row < kCalibrationRows; ++row) {
      const double step = correction(data, range, row, celsius, true) - correction(data, range, row - 1, celsius, true);
      ASSERT_LT(std::fabs(step), 0.1) << "range " << range << " row " << row;
      moved += std::fabs(step);
    }
    EXPECT_GT(moved, 0.001) << "range " << range;
  }
}

TEST_P(SeededLens, Tables_HaveShadingAndAPattern) {
  const auto gainAt = [&](std::size_t x, std::size_t y) {
    return int{loadU16(data.tables[0].data() + 4 * (y * options.sensor.width + x))};
  };
  const auto meanFrom = [&](std::size_t left, std::size_t top) {
    int sum = 0;
    for (std::size_t y = top; y < top + 8; ++y) {
      for (std::size_t x = left; x < left + 8; ++x) sum += gainAt(x, y);
    }
    return sum / 64;
  };
  const int centre = meanFrom(28, 20);
  for (const auto& [left, top] : {std::pair<std::size_t, std::size_t>{0, 0}, {56, 0}, {0, 40}, {56, 40}}) {
    EXPECT_GT(meanFrom(left, top), centre + 150);
  }
  int neighbours = 0;
  for (std::size_t x = 1; x < 64; ++x) neighbours += gainAt(x, 24) != gainAt(x - 1, 24) ? 1 : 0;
  EXPECT_GT(neighbours, 50);
}

INSTANTIATE_TEST_SUITE_P(LensData, SeededLens, ::testing::Values(1, 2, 3, 4, 5, 42, 1000, UINT64_MAX));

}  // namespace
