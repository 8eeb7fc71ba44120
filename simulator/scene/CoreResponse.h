// What a core's counts depend on besides the scene: its gain, its radiometry mode, and how warm it is.
#pragma once

#include <cstdint>

namespace simulator {

/// What a pixel's value says.
enum class PixelScale : uint8_t {
  Radiance,        ///< counts that follow what the sensor takes in
  KelvinTimes25,   ///< temperature-linear, 0.04 K a count
  KelvinTimes2p5,  ///< temperature-linear, 0.4 K a count
};

/// What the core itself takes an object to be when its pixels are linear in temperature.
struct CoreObjectParameters {
  double emissivity = 1.0;
  double reflected_celsius = 22.0;
  double atmospheric_celsius = 22.0;
};

inline bool operator==(const CoreObjectParameters& a, const CoreObjectParameters& b) {
  return a.emissivity == b.emissivity && a.reflected_celsius == b.reflected_celsius &&
         a.atmospheric_celsius == b.atmospheric_celsius;
}

struct CoreResponse {
  bool low_gain = false;
  PixelScale scale = PixelScale::Radiance;
  CoreObjectParameters object;
  int32_t core_degrees = 25;  ///< Celsius; chooses the row of the lens' correction
};

inline bool operator==(const CoreResponse& a, const CoreResponse& b) {
  return a.low_gain == b.low_gain && a.scale == b.scale && a.object == b.object && a.core_degrees == b.core_degrees;
}

}  // namespace simulator
