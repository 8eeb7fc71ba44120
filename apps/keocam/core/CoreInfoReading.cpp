#include "apps/keocam/core/CoreInfoReading.h"

#include "radiometry/CoreRadiometry.h"

namespace keocam::cli {
namespace {

template <typename T>
CoreValue<T> read(CoreSession& session, CoreValue<T> (*reading)(CameraSerialSettings& core)) {
  return session.attempt([&] { return reading(session.core()); });
}

}  // namespace

void readCoreInfo(CoreSession& session, CoreInfo& info) {
  info.part_number = read(session, readPartNumber);
  info.serial_numbers = read(session, readSerialNumbers);
  info.versions = read(session, readVersions);
  info.high_gain = read(session, readHighGain);
  info.sensor_temperature_celsius = read(session, readSensorTemperatureC);
  info.housing_temperature_celsius = read(session, readHousingTemperatureC);
  info.shutter_temperature_celsius = read(session, readShutterTemperatureC);
}

}  // namespace keocam::cli
