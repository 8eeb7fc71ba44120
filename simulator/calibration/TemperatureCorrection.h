// The last step of a host's conversion, a lens' correction by range and core temperature, and its inverse.
#pragma once

#include <cstdint>

#include "simulator/calibration/CalibrationRange.h"
#include "simulator/calibration/LensData.h"

namespace simulator {

/// Immutable. Temperatures are in degrees Celsius; `core_degrees` is the core's own to the nearest degree, of which
/// less than 0 is taken for 0 and more than 59 for 59.
class TemperatureCorrection {
 public:
  /// Of the points that a text of this version has.
  TemperatureCorrection(const CalibrationPoints& points, unsigned version);

  /// What a host makes of the temperature that the pixel's value alone gives.
  double corrected(CalibrationRange range, int32_t core_degrees, double celsius) const;

  /// The temperature of which corrected() makes `celsius`. Where the two lines do not meet there may be none; then it
  /// is that which comes nearest.
  double uncorrected(CalibrationRange range, int32_t core_degrees, double celsius) const;

  /// Throws std::invalid_argument, with a text that names the first one, where from `low_celsius` to `high_celsius`
  /// there are temperatures that uncorrected() misses by more than half a degree: such a calibration does not serve.
  void checkInverse(CalibrationRange range, double low_celsius, double high_celsius) const;

 private:
  /// Which of a row's points count.
  enum class Form : uint8_t { OneLine, TwoLines, Polynomial };

  const CalibrationRow& row(CalibrationRange range, int32_t core_degrees) const;
  Form form(CalibrationRange range) const;

  CalibrationPoints points_;
  bool two_lines_;
};

}  // namespace simulator
