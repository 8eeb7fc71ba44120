// What temperatures were measured with: all that another program needs to judge them, or a person to repeat them.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <utility>
#include <vector>

#include "apps/keocam/temperature/DisplayUnit.h"
#include "pv/aravis/DeviceDetails.h"
#include "radiometry/Radiance.h"
#include "serial/CameraSerialSettings.h"

namespace keocam::cli {

struct Conditions {
  DeviceDetails camera;
  std::string lens;  ///< fit for a terminal; empty if temperatures are not corrected for one
  RangeModes range = CameraSerialSettings::LowRange;
  ObjectParameters object;
  bool by_core = false;  ///< the core computes temperatures itself, without distance and humidity
  double core_temperature_celsius = 0.0;
};

/// A condition as a name and a value, both text. Numbers are in C notation.
using ConditionTexts = std::vector<std::pair<std::string, std::string>>;

/// The conditions in `unit`, in a fixed order; those that do not apply are left out.
ConditionTexts conditionTexts(const Conditions& conditions, const DisplayUnit& unit);

/// The same as an object with numbers; null for what does not apply.
nlohmann::ordered_json conditionsJson(const Conditions& conditions, const DisplayUnit& unit);

/// What a person has to know of them, as a line.
std::string conditionSummary(const Conditions& conditions, const DisplayUnit& unit);

}  // namespace keocam::cli
