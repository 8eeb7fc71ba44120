// The numbers of one lens' calibration, made from a seed: what a text carries, as values.
#pragma once

#include <array>
#include <cstddef>

#include "simulator/Bytes.h"
#include "simulator/calibration/CalibrationOptions.h"

namespace simulator {

constexpr std::size_t kCalibrationRanges = 3;  ///< low, middle, and up to 1500 degrees
constexpr std::size_t kCalibrationRows = 60;   ///< one for each degree of the core
constexpr std::size_t kPointsPerRow = 5;

using CalibrationRow = std::array<float, kPointsPerRow>;
using CalibrationPoints = std::array<std::array<CalibrationRow, kCalibrationRows>, kCalibrationRanges>;

/// What the text of this version does not carry is 0, or empty.
struct LensData {
  CalibrationPoints points{};
  std::array<Bytes, kCalibrationRanges> tables;
};

/// The same options give the same numbers, on every machine. From version 3 on the points of the low and the middle
/// range are two straight lines, p0 + p1 T below and p3 + p4 T above the temperature (p4 - p1) / (p0 - p3); all others
/// are those of one polynomial. They say what is to be added to a temperature: less than two degrees. That quotient is
/// where the lines meet only if it is 1, so it is about 1, and they part there by less than a thousandth of a degree.
/// Throws as checkCalibration(), and std::out_of_range where there is no such lens.
LensData lensDataOf(const CalibrationOptions& options, std::size_t lens);

}  // namespace simulator
