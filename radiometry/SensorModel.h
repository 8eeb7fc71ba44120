// From raw value to temperature and back, before the lens' correction, as a value.
#pragma once

#include <cstdint>

#include "radiometry/Radiance.h"

namespace keocam {

/// What a raw value is.
enum class RawMeaning : uint64_t {
  Counts,                ///< of the sensor
  KelvinHighResolution,  ///< the core's own temperature, 25 counts per kelvin
  KelvinLowResolution,   ///< likewise, 2.5 counts per kelvin
};

/// Degrees Celsius, both reported themselves.
struct TemperatureLimits {
  double lowest;
  double highest;
};

struct SensorModel {
  SensorResponse response;
  Sight sight;
  TemperatureLimits limits;  ///< of temperatures from counts; the core's own are not limited
  RawMeaning meaning;

  /// Degrees Celsius; NaN where there is none.
  double celsius(uint16_t raw) const;

  /// The raw value of a temperature in degrees Celsius: the inverse, not rounded and not limited to 16 bits.
  double raw(double celsius) const;

  /// The temperatures that celsius() may give.
  TemperatureLimits reach() const;
};

}  // namespace keocam
