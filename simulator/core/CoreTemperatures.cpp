#include "simulator/core/CoreTemperatures.h"

#include <algorithm>
#include <cmath>

namespace simulator {
namespace {

constexpr double kPi = 3.14159265358979323846;
/// The swing's periods share no factor, so that the places do not swing together.
constexpr double kSensorSwing_s = 97.0;
constexpr double kHousingSwing_s = 131.0;
constexpr double kShutterSwing_s = 113.0;
/// The swing sets in slowly, so that the start temperatures are exact.
constexpr double kSwingSetsIn_s = 60.0;

double at(const ThermalCourse& course, const ThermalProfile& profile, double swing_period_s, uint64_t seed,
          double time_s) {
  if (profile.still) return course.start_celsius;
  const double warmed = course.time_constant_s > 0 ? -std::expm1(-time_s / course.time_constant_s) : 1.0;
  const double phase = static_cast<double>(seed % 360) * kPi / 180.0;
  const double swing = -std::expm1(-time_s / kSwingSetsIn_s) * std::sin(2.0 * kPi * time_s / swing_period_s + phase);
  return course.start_celsius + (course.steady_celsius - course.start_celsius) * warmed +
         profile.wander_celsius * swing;
}

uint16_t asWord(double value) {
  return static_cast<uint16_t>(static_cast<int16_t>(std::lround(std::clamp(value, -32768.0, 32767.0))));
}

}  // namespace

CoreTemperatures temperaturesAt(const ThermalProfile& profile, uint64_t seed, uint64_t since_power_on_ns) {
  const double time_s = static_cast<double>(since_power_on_ns) * 1e-9;
  return {at(profile.sensor, profile, kSensorSwing_s, seed, time_s),
          at(profile.housing, profile, kHousingSwing_s, seed, time_s),
          at(profile.shutter, profile, kShutterSwing_s, seed, time_s)};
}

uint16_t tenths(double celsius) { return asWord(celsius * 10.0); }

uint16_t hundredths(double celsius) { return asWord(celsius * 100.0); }

int32_t wholeDegrees(double celsius) {
  const auto told = static_cast<int16_t>(tenths(celsius));
  return static_cast<int32_t>(std::floor((told + 5) / 10.0));
}

}  // namespace simulator
