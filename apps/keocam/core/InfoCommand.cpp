#include "apps/keocam/core/InfoCommand.h"

#include "apps/keocam/core/CoreInfo.h"
#include "apps/keocam/core/CoreSession.h"
#include "radiometry/CoreRadiometry.h"

namespace keocam::cli {
namespace {

template <typename T>
CoreValue<T> read(CoreSession& session, CoreValue<T> (*reading)(CameraSerialSettings& core)) {
  return session.attempt([&] { return reading(session.core()); });
}

CoreInfo infoOf(CoreSession& session) {
  CoreInfo info;
  info.part_number = read(session, readPartNumber);
  info.serial_numbers = read(session, readSerialNumbers);
  info.versions = read(session, readVersions);
  info.high_gain = read(session, readHighGain);
  info.sensor_temperature_celsius = read(session, readSensorTemperatureC);
  info.housing_temperature_celsius = read(session, readHousingTemperatureC);
  info.shutter_temperature_celsius = read(session, readShutterTemperatureC);
  return info;
}

}  // namespace

ExitStatus runInfo(const InfoOptions& options, const Console& console, DataOutput& output) {
  const auto session = connectedCore(options.serial_number, console);
  const CoreInfo info = infoOf(*session);
  output.write(options.json ? coreInfoJson(session->camera(), info) : coreInfoText(session->camera(), info));
  if (const auto failures = failuresAmong(info); !failures.empty()) throw notRead(failures);
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
