#include "radiometry/SensorModel.h"

#include <limits>

namespace keocam {
namespace {

constexpr double kCountsPerKelvin = 25.0;
// The low resolution's counts are brought to the high one's first.
constexpr double kHighCountsPerLowCount = 10.0;

}  // namespace

double SensorModel::celsius(uint16_t raw) const {
  switch (meaning) {
    case RawMeaning::KelvinHighResolution:
      return raw / kCountsPerKelvin - kZeroCelsius_K;
    case RawMeaning::KelvinLowResolution:
      return raw * kHighCountsPerLowCount / kCountsPerKelvin - kZeroCelsius_K;
    case RawMeaning::Counts:
      break;
  }
  const double temperature = objectTemperatureC(response, objectSignal(sight, measuredSignal(response, raw)));
  // NaN passes both.
  if (temperature < limits.lowest) return limits.lowest;
  if (temperature > limits.highest) return limits.highest;
  return temperature;
}

double SensorModel::raw(double celsius) const {
  const double kelvin = celsius + kZeroCelsius_K;
  switch (meaning) {
    case RawMeaning::KelvinHighResolution:
      return kelvin * kCountsPerKelvin;
    case RawMeaning::KelvinLowResolution:
      return kelvin * kCountsPerKelvin / kHighCountsPerLowCount;
    case RawMeaning::Counts:
      break;
  }
  return rawOfSignal(response, measuredFromObjectSignal(sight, blackBodySignal(response, kelvin)));
}

TemperatureLimits SensorModel::reach() const {
  if (meaning == RawMeaning::Counts) return limits;
  constexpr uint16_t kMost = std::numeric_limits<uint16_t>::max();
  return {celsius(0), celsius(kMost)};
}

}  // namespace keocam
