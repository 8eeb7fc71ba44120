#include "simulator/scene/Radiance.h"

#include <cmath>

namespace simulator {
namespace {

/// Water in the air by temperature: the exponent's polynomial in degrees Celsius, from the constant upwards.
constexpr double kWater[] = {1.5587, 0.06939, -0.00027816, 6.8455e-07};
/// Loss per square root of a metre: in dry air, and what each square root of water changes of it.
constexpr double kDryLoss = 0.006569;
constexpr double kWaterLoss = -0.002276;

double waterContent(double celsius, double humidity) {
  double exponent = 0;
  for (int power = 3; power >= 0; --power) exponent = exponent * celsius + kWater[power];
  return humidity * std::exp(exponent);
}

}  // namespace

double blackBodyRadiance(double celsius, const Gain& gain) {
  return gain.planck_r / (std::exp(gain.planck_b_kelvin / (celsius + kZeroCelsius_kelvin)) - gain.planck_f);
}

double blackBodyKelvin(double radiance, const Gain& gain) {
  return radiance > 0 ? gain.planck_b_kelvin / std::log(gain.planck_r / radiance + gain.planck_f) : 0.0;
}

double airTransmission(const Surroundings& surroundings) {
  const double water = waterContent(surroundings.atmospheric_celsius, surroundings.humidity);
  return std::exp(-std::sqrt(surroundings.distance_m) * (kDryLoss + kWaterLoss * std::sqrt(water)));
}

Sight sightOf(const Surroundings& surroundings, const Gain& gain) {
  const double air = airTransmission(surroundings);
  const double object_part = surroundings.emissivity * surroundings.optics_transmission;
  // What the optics hold back is made up for by their own radiance, taken to be that of the surroundings.
  const double reflected = air * (1 - object_part) * blackBodyRadiance(surroundings.reflected_celsius, gain);
  const double radiated_by_air = (1 - air) * blackBodyRadiance(surroundings.atmospheric_celsius, gain);
  return {object_part * air, reflected + radiated_by_air};
}

}  // namespace simulator
