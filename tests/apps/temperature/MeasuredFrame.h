// A small frame for tests of reports and files.
#pragma once

#include <limits>

#include "apps/keocam/temperature/Conditions.h"
#include "apps/keocam/temperature/TemperatureFrame.h"

namespace keocam::cli {

/// 4 x 2 pixels: 10 to 16 degrees in equal steps from the top left, and at the end one without a temperature.
inline TemperatureFrame smallFrame() {
  TemperatureFrame frame;
  frame.raw = {4, 2, {5000, 5001, 5002, 5003, 5004, 5005, 5006, 7}};
  frame.celsius = {10, 11, 12, 13, 14, 15, 16, std::numeric_limits<float>::quiet_NaN()};
  frame.time_ns = 1'795'252'536'123'000'000;
  return frame;
}

inline Conditions usualConditions() {
  Conditions conditions;
  conditions.camera.serial_number = "KEOD2001";
  conditions.camera.model = "KEOsim-640";
  conditions.camera.vendor = "KEO";
  conditions.lens = "L25mm";
  conditions.object = {0.9, 303.15, 293.15, 2.5, 0.4};
  conditions.core_temperature_celsius = 25.1;
  return conditions;
}

}  // namespace keocam::cli
