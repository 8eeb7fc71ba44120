#include "apps/keocam/core/CoreFields.h"

#include <cstdio>

#include "apps/keocam/Json.h"
#include "apps/keocam/temperature/RangeText.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

std::string versionText(const Version& version) {
  return std::to_string(version.major) + "." + std::to_string(version.minor);
}

std::string celsiusText(double celsius, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f °C", decimals, celsius);
  return text;
}

CoreField numberField(const char* label, const char* key, ResponseStatuses status, uint32_t number) {
  return {label, key, status, std::to_string(number), number};
}

CoreField textField(const char* label, const char* key, ResponseStatuses status, const std::string& text) {
  return {label, key, status, printable(text), text};
}

CoreField gainField(const char* label, const char* key, const CoreValue<bool>& high) {
  const std::string gain = high.value ? "high" : "low";
  return {label, key, high.status, gain + " (" + rangesByGain(high.value) + " range)", gain};
}

CoreField temperatureField(const char* label, const char* key, const CoreValue<double>& celsius, int decimals) {
  return {label, key, celsius.status, celsiusText(celsius.value, decimals), toThousandths(celsius.value)};
}

}  // namespace

std::vector<CoreField> coreFieldsOf(const CoreInfo& info) {
  const auto& [serials_status, serials] = info.serial_numbers;
  const auto& [versions_status, versions] = info.versions;
  return {
      textField("Part number", "part_number", info.part_number.status, info.part_number.value),
      numberField("Core serial number", "core_serial_number", serials_status, serials.core),
      numberField("Sensor serial number", "sensor_serial_number", serials_status, serials.sensor),
      textField("Software version", "software_version", versions_status, versionText(versions.software)),
      textField("Firmware version", "firmware_version", versions_status, versionText(versions.firmware)),
      gainField("Gain", "gain", info.high_gain),
      temperatureField("Sensor temperature", "sensor_temperature_celsius", info.sensor_temperature_celsius, 1),
      temperatureField("Housing temperature", "housing_temperature_celsius", info.housing_temperature_celsius, 2),
      temperatureField("Shutter temperature", "shutter_temperature_celsius", info.shutter_temperature_celsius, 2),
  };
}

}  // namespace keocam::cli
