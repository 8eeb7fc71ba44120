// What a host makes of a pixel's value: the formula of temperatures the other way round, written without the
// simulator's.
#pragma once

#include <cmath>
#include <cstdint>

namespace scene_test {

struct HostModel {
  bool low_gain = false;
  double emissivity = 0.95;
  double reflected_celsius = 20;
  double atmospheric_celsius = 20;
  double distance_m = 1;
  double humidity = 0.5;
  double optics = 1;

  double blackBody(double celsius) const { return planckR() / (std::exp(planckB() / (celsius + 273.15)) - 1.0); }

  double celsiusOf(double counts) const {
    const double t = atmospheric_celsius;
    const double water = humidity * std::exp(1.5587 + 0.06939 * t - 0.00027816 * t * t + 6.8455e-07 * t * t * t);
    const double tau = std::exp(-std::sqrt(distance_m) * (0.006569 + -0.002276 * std::sqrt(water)));
    const double measured = low_gain ? (counts - 754.0) / 3.0694580078125 : (counts - 342.0) / 22.1396484;
    const double mirrored = tau * (1 - emissivity * optics) * blackBody(reflected_celsius);
    const double object =
        (measured - mirrored - (1 - tau) * blackBody(atmospheric_celsius)) / (emissivity * tau * optics);
    return planckB() / std::log(planckR() / object + 1.0) - 273.15;
  }

 private:
  double planckR() const { return low_gain ? 18514.0 : 16556.0; }
  double planckB() const { return low_gain ? 1470.0 : 1428.0; }
};

}  // namespace scene_test
