// What a core tells of itself, as text and as JSON.
#pragma once

#include <string>
#include <vector>

#include "apps/keocam/core/StatusText.h"
#include "pv/aravis/DeviceDetails.h"
#include "serial/CoreReadings.h"

namespace keocam::cli {

/// The initial values say that nothing was read.
struct CoreInfo {
  CoreValue<std::string> part_number{UNKNOWN_ERROR, {}};
  CoreValue<SerialNumbers> serial_numbers{UNKNOWN_ERROR, {}};
  CoreValue<Versions> versions{UNKNOWN_ERROR, {}};
  CoreValue<bool> high_gain{UNKNOWN_ERROR, false};
  CoreValue<double> sensor_temperature_celsius{UNKNOWN_ERROR, 0.0};
  CoreValue<double> housing_temperature_celsius{UNKNOWN_ERROR, 0.0};
  CoreValue<double> shutter_temperature_celsius{UNKNOWN_ERROR, 0.0};
};

/// A line for each, aligned; what was not read says so with its status.
std::string coreInfoText(const DeviceDetails& camera, const CoreInfo& info);

/// An object; null for what was not read, which a further object "errors" names with its status.
std::string coreInfoJson(const DeviceDetails& camera, const CoreInfo& info);

/// Those that could not be read.
std::vector<FailedItem> failuresAmong(const CoreInfo& info);

}  // namespace keocam::cli
