// The shutter and when it closes for a flat-field correction (FFC).
#pragma once

#include <cstdint>
#include <functional>

#include "simulator/Clock.h"

namespace simulator {

/// When the core corrects by itself.
struct FlatFieldRules {
  uint64_t period_ns = kNever;  ///< kNever: not by time
  double delta_celsius = 0;     ///< 0: not by temperature
};

/// Time is an argument of every call and must not run backwards.
class FlatField {
 public:
  using SensorTemperature = std::function<double(uint64_t now_ns)>;

  /// The sensor is taken to be corrected at `now_ns`, without an FFC.
  FlatField(uint64_t closed_for_ns, SensorTemperature sensor_celsius, uint64_t now_ns);

  /// Closes the shutter for its time; one that is closed stays so for that time from now.
  void correct(uint64_t now_ns);

  /// Makes up for the corrections that the rules have asked for since the last call. The temperature is looked at every
  /// second, or about a thousand times where that is less often.
  void advance(const FlatFieldRules& rules, uint64_t now_ns);

  /// The shutter is closed until `open_ns` and the sensor is corrected then; nothing is counted. Until then correct()
  /// and advance() must not be called.
  void restart(uint64_t open_ns);

  bool closed(uint64_t now_ns) const { return now_ns < closed_until_ns_; }
  uint64_t count() const { return count_; }

  /// How far the sensor's temperature is from where it was corrected.
  double driftCelsius(uint64_t now_ns) const { return sensor_celsius_(now_ns) - corrected_celsius_; }

 private:
  bool wanted(const FlatFieldRules& rules, uint64_t now_ns) const;

  uint64_t closed_for_ns_;
  SensorTemperature sensor_celsius_;
  uint64_t corrected_ns_;
  uint64_t closed_until_ns_;
  uint64_t looked_ns_;
  double corrected_celsius_;
  uint64_t count_ = 0;
};

}  // namespace simulator
