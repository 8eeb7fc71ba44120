// The physics between an object and a count: what bodies radiate, what the air and the optics do to it.
#pragma once

namespace simulator {

constexpr double kZeroCelsius_kelvin = 273.15;
constexpr double kLargestCount = 16383;

/// How counts follow radiance in one of the core's gains. Radiance has no unit here: a black body of T kelvin gives
/// planck_r / (exp(planck_b / T) - planck_f).
struct Gain {
  double planck_r;
  double planck_b_kelvin;
  double planck_f;
  double offset_counts;
  double counts_per_radiance;
};

inline constexpr Gain kHighGain{16556.0, 1428.0, 1.0, 342.0, 22.1396484};
inline constexpr Gain kLowGain{18514.0, 1470.0, 1.0, 754.0, 3.0694580078125};

double blackBodyRadiance(double celsius, const Gain& gain);

/// The black body's temperature for a radiance; absolute zero where there is none.
double blackBodyKelvin(double radiance, const Gain& gain);

/// Where an object stands, and what it is like.
struct Surroundings {
  double emissivity = 0.95;
  double reflected_celsius = 20.0;    ///< of what the object mirrors
  double atmospheric_celsius = 20.0;  ///< of the air between
  double distance_m = 1.0;
  double humidity = 0.5;             ///< relative, as a fraction
  double optics_transmission = 1.0;  ///< of a window in front of the lens
};

/// The part of an object's radiance that gets through the air. It may be a little above 1, as this is an approximation
/// that was fitted to measurements.
double airTransmission(const Surroundings& surroundings);

/// How an object's radiance as a black body becomes what the sensor takes in: a part of it, and what others add.
struct Sight {
  double object_part;
  double added_radiance;
};

Sight sightOf(const Surroundings& surroundings, const Gain& gain);

}  // namespace simulator
