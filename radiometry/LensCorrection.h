// What a lens' calibration adds to a temperature, for one range and one temperature of the core, as a value.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "calibration/CalibrationStruct.h"
#include "serial/CameraSerialSettings.h"

namespace keocam {

class LensCorrection {
 public:
  /// Adds nothing.
  LensCorrection() = default;

  /// Of a lens, for a range (nothing is added in ranges that there are not) and a row of the calibration.
  LensCorrection(const CalibrationStruct& lens, RangeModes range, std::size_t row);

  /// The corrected temperature. All in degrees Celsius.
  double corrected(double temperature) const;

  /// The temperature that is corrected to `corrected`: the inverse. Where two temperatures are, the one of the lower
  /// straight line, or the lowest; where the lines leave a gap, the temperature at which they switch over; NaN if
  /// there is none between `lowest` and `highest`.
  double uncorrected(double corrected, double lowest, double highest) const;

  /// Bit by bit.
  bool operator==(const LensCorrection& other) const;
  bool operator!=(const LensCorrection& other) const { return !(*this == other); }

 private:
  enum class Form : uint64_t {
    None,
    Line,      ///< points 0 and 1
    TwoLines,  ///< that one below the switch-over temperature, points 3 and 4 from there on
    Quartic,   ///< all five points
  };

  double addedByLine(std::size_t offset, double temperature) const;
  double addedByQuartic(double temperature) const;
  double lineInverse(std::size_t offset, double corrected) const;
  double quarticInverse(double corrected, double lowest, double highest) const;

  Form form_ = Form::None;
  std::array<double, 5> points_{};
  double switch_over_ = 0.0;
};

/// The row of the calibration for a temperature of the core in degrees Celsius: to the nearest degree, 0 to 59.
std::size_t calibrationRow(double core_temperature_C);

}  // namespace keocam
