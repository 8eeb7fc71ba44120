// How warm the core is: a pure function of the time since power-on.
#pragma once

#include <cstdint>

namespace simulator {

/// One place that warms up after power-on.
struct ThermalCourse {
  double start_celsius = 25.0;
  double steady_celsius = 34.0;
  double time_constant_s = 240.0;
};

struct ThermalProfile {
  ThermalCourse sensor{25.0, 34.0, 240.0};
  ThermalCourse housing{24.0, 30.0, 600.0};
  ThermalCourse shutter{24.5, 31.5, 420.0};
  double wander_celsius = 0.05;  ///< of a slow swing about the course
  bool still = false;            ///< all places keep their start temperature
};

struct CoreTemperatures {
  double sensor_celsius = 0;
  double housing_celsius = 0;
  double shutter_celsius = 0;
};

/// The same profile, seed and time always give the same temperatures; at power-on they are the start temperatures.
CoreTemperatures temperaturesAt(const ThermalProfile& profile, uint64_t seed, uint64_t since_power_on_ns);

/// As words of an answer: rounded, two's complement, held at the ends of what a word can say.
uint16_t tenths(double celsius);
uint16_t hundredths(double celsius);

/// The nearest whole degree to what tenths() tells a host, which rounds halves up.
int32_t wholeDegrees(double celsius);

}  // namespace simulator
