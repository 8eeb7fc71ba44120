#include "simulator/calibration/TemperatureCorrection.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>
#include <stdexcept>

#include "simulator/calibration/CalibrationFormat.h"

namespace simulator {
namespace {

constexpr int kMostSteps = 60;
constexpr double kCloseEnough_celsius = 1e-9;
constexpr double kLargestMiss_celsius = 0.5;
constexpr int kSamples = 32;

double lineAt(const CalibrationRow& row, std::size_t first, double celsius) {
  return double{row[first]} + double{row[first + 1]} * celsius;
}

/// The temperature to which the line adds up to `celsius`; not finite for a line that takes away all that comes.
double undoLine(const CalibrationRow& row, std::size_t first, double celsius) {
  return (celsius - double{row[first]}) / (1 + double{row[first + 1]});
}

double polynomialAt(const CalibrationRow& row, double celsius) {
  double sum = 0;
  for (std::size_t point = kPointsPerRow; point-- > 0;) sum = sum * celsius + double{row[point]};
  return sum;
}

double slopeAt(const CalibrationRow& row, double celsius) {
  double sum = 0;
  for (std::size_t point = kPointsPerRow; point-- > 1;) {
    sum = sum * celsius + static_cast<double>(point) * double{row[point]};
  }
  return sum;
}

/// By Newton's method, which from here is a few steps away: corrections are small.
double undoPolynomial(const CalibrationRow& row, double celsius) {
  double guess = celsius;
  for (int step = 0; step < kMostSteps; ++step) {
    const double move = (guess + polynomialAt(row, guess) - celsius) / (1 + slopeAt(row, guess));
    guess -= move;
    if (std::fabs(move) < kCloseEnough_celsius) break;
  }
  return guess;
}

/// Where a reader goes over to the second line. It divides this way round, so lines meet there only at 1 and -1
/// degrees.
double switchOver(const CalibrationRow& row) {
  return (double{row[4]} - double{row[1]}) / (double{row[0]} - double{row[3]});
}

double correctedByTwoLines(const CalibrationRow& row, double celsius) {
  return celsius + lineAt(row, celsius < switchOver(row) ? 0 : 3, celsius);
}

double undoTwoLines(const CalibrationRow& row, double celsius) {
  const double over = switchOver(row);
  const double infinity = std::numeric_limits<double>::infinity();
  double nearest = celsius;
  double miss = infinity;
  for (const double guess :
       {undoLine(row, 0, celsius), undoLine(row, 3, celsius), over, std::nextafter(over, -infinity)}) {
    const double off = std::fabs(correctedByTwoLines(row, guess) - celsius);
    if (!(off < miss)) continue;
    nearest = guess;
    miss = off;
  }
  return nearest;
}

}  // namespace

TemperatureCorrection::TemperatureCorrection(const CalibrationPoints& points, unsigned version)
    // The first row of the low range speaks for all of them.
    : points_(points), two_lines_(version >= kFirstVersionWithTwoLines && points[0][0][3] != 0.0F) {}

const CalibrationRow& TemperatureCorrection::row(CalibrationRange range, int32_t core_degrees) const {
  constexpr auto kLast = static_cast<int32_t>(kCalibrationRows) - 1;
  const auto index = static_cast<std::size_t>(std::clamp(core_degrees, 0, kLast));
  return points_[static_cast<std::size_t>(range)][index];
}

TemperatureCorrection::Form TemperatureCorrection::form(CalibrationRange range) const {
  if (range == CalibrationRange::High) return Form::Polynomial;
  if (two_lines_) return Form::TwoLines;
  return range == CalibrationRange::Low ? Form::OneLine : Form::Polynomial;
}

double TemperatureCorrection::corrected(CalibrationRange range, int32_t core_degrees, double celsius) const {
  const CalibrationRow& points = row(range, core_degrees);
  switch (form(range)) {
    case Form::OneLine:
      return celsius + lineAt(points, 0, celsius);
    case Form::TwoLines:
      return correctedByTwoLines(points, celsius);
    case Form::Polynomial:
      break;
  }
  return celsius + polynomialAt(points, celsius);
}

double TemperatureCorrection::uncorrected(CalibrationRange range, int32_t core_degrees, double celsius) const {
  const CalibrationRow& points = row(range, core_degrees);
  switch (form(range)) {
    case Form::OneLine:
      return undoLine(points, 0, celsius);
    case Form::TwoLines:
      return undoTwoLines(points, celsius);
    case Form::Polynomial:
      break;
  }
  return undoPolynomial(points, celsius);
}

void TemperatureCorrection::checkInverse(CalibrationRange range, double low_celsius, double high_celsius) const {
  constexpr const char* kRangeNames[kCalibrationRanges] = {"low", "middle", "high"};
  for (int32_t core = 0; core < static_cast<int32_t>(kCalibrationRows); ++core) {
    for (int sample = 0; sample <= kSamples; ++sample) {
      const double celsius = low_celsius + (high_celsius - low_celsius) * sample / kSamples;
      const double back = corrected(range, core, uncorrected(range, core, celsius));
      if (std::fabs(back - celsius) <= kLargestMiss_celsius) continue;
      std::ostringstream text;
      text << "the lens' calibration has no sound correction in the " << kRangeNames[static_cast<std::size_t>(range)]
           << " range at " << celsius << " C with the core at " << core
           << " C; choose other temperatures, another lens or another calibration";
      throw std::invalid_argument(text.str());
    }
  }
}

}  // namespace simulator
