#include "radiometry/LensCorrection.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace keocam {
namespace {

constexpr std::size_t kRows = 60;
constexpr std::size_t kUpperLine = 3;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

}  // namespace

LensCorrection::LensCorrection(const CalibrationStruct& lens, RangeModes range, std::size_t row) {
  if (range > CameraSerialSettings::HighRange) return;
  const bool has_lines = range != CameraSerialSettings::HighRange && lens.slopesValid != 0;
  // Without switch-over temperatures the low range is corrected by a line, the middle range by the quartic.
  if (has_lines) {
    form_ = Form::TwoLines;
    switch_over_ = lens.slopes[range][row];
  } else {
    form_ = range == CameraSerialSettings::LowRange ? Form::Line : Form::Quartic;
  }
  std::copy_n(lens.data[range][row], points_.size(), points_.begin());
}

double LensCorrection::addedByLine(std::size_t offset, double temperature) const {
  return points_[offset] + points_[offset + 1] * temperature;
}

double LensCorrection::addedByQuartic(double temperature) const {
  const double t = temperature;
  return points_[0] + points_[1] * t + points_[2] * (t * t) + points_[3] * (t * t * t) + points_[4] * (t * t * t * t);
}

double LensCorrection::corrected(double temperature) const {
  switch (form_) {
    case Form::None:
      break;
    case Form::Line:
      return temperature + addedByLine(0, temperature);
    case Form::TwoLines:
      // NaN is not below.
      return temperature + addedByLine(temperature < switch_over_ ? 0 : kUpperLine, temperature);
    case Form::Quartic:
      return temperature + addedByQuartic(temperature);
  }
  return temperature;
}

double LensCorrection::lineInverse(std::size_t offset, double corrected) const {
  return (corrected - points_[offset]) / (1.0 + points_[offset + 1]);
}

double LensCorrection::quarticInverse(double corrected, double lowest, double highest) const {
  // The first crossing seen from below, on a grid fine enough for corrections of a few degrees; then halved until the
  // two ends are neighbours.
  constexpr int kSteps = 1024;
  const double step = (highest - lowest) / kSteps;
  const auto error = [&](double temperature) { return this->corrected(temperature) - corrected; };
  double below = lowest;
  double error_below = error(below);
  for (int i = 1; i <= kSteps && error_below != 0.0; ++i) {
    const double above = i < kSteps ? lowest + step * i : highest;
    const double error_above = error(above);
    if ((error_below < 0.0) == (error_above < 0.0) && error_above != 0.0) {
      below = above;
      error_below = error_above;
      continue;
    }
    double from = below;
    double to = above;
    for (double middle = from + (to - from) / 2; middle > from && middle < to; middle = from + (to - from) / 2) {
      ((error(middle) < 0.0) == (error_below < 0.0) ? from : to) = middle;
    }
    return std::abs(error(from)) < std::abs(error(to)) ? from : to;
  }
  return error_below == 0.0 ? below : kNone;
}

double LensCorrection::uncorrected(double corrected, double lowest, double highest) const {
  double temperature = corrected;
  if (form_ == Form::Line) temperature = lineInverse(0, corrected);
  if (form_ == Form::Quartic) temperature = quarticInverse(corrected, lowest, highest);
  if (form_ == Form::TwoLines) {
    const double lower = lineInverse(0, corrected);
    const double upper = lineInverse(kUpperLine, corrected);
    temperature = lower < switch_over_ ? lower : upper < switch_over_ ? switch_over_ : upper;
  }
  return temperature >= lowest && temperature <= highest ? temperature : kNone;
}

bool LensCorrection::operator==(const LensCorrection& other) const {
  static_assert(sizeof(LensCorrection) == 7 * sizeof(double), "padding would be compared too");
  return std::memcmp(this, &other, sizeof *this) == 0;
}

std::size_t calibrationRow(double core_temperature_C) {
  const double nearest = core_temperature_C + 0.5;
  if (!(nearest > 0.0)) return 0;
  return nearest >= static_cast<double>(kRows) ? kRows - 1 : static_cast<std::size_t>(nearest);
}

}  // namespace keocam
