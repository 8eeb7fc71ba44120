// What the thermal core tells of itself, each with its status; the whole answer is checked, and nothing is printed.
// Errors are those of keocam::readSetting. No global and no field of the object changes.
#pragma once

#include <cstdint>
#include <string>

#include "serial/CameraSerialSettings.h"
#include "serial/CoreValue.h"

namespace keocam {

/// Degrees Celsius, in steps of 0.1 (sensor) and 0.01 (housing, shutter), none below 0: the core's numbers are taken
/// as unsigned.
CoreValue<double> readSensorTemperatureC(CameraSerialSettings& core);
CoreValue<double> readHousingTemperatureC(CameraSerialSettings& core);
CoreValue<double> readShutterTemperatureC(CameraSerialSettings& core);

struct SerialNumbers {
  uint32_t core;
  uint32_t sensor;
};
CoreValue<SerialNumbers> readSerialNumbers(CameraSerialSettings& core);

struct Version {
  uint16_t major;
  uint16_t minor;
};
struct Versions {
  Version software;
  Version firmware;
};
CoreValue<Versions> readVersions(CameraSerialSettings& core);

/// The part number as the core has it, 32 characters, with its padding; shorter if there is a zero byte in it.
CoreValue<std::string> readPartNumber(CameraSerialSettings& core);

}  // namespace keocam
