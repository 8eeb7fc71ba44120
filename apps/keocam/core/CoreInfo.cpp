#include "apps/keocam/core/CoreInfo.h"

#include <cstdio>
#include <nlohmann/json.hpp>

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/Json.h"
#include "apps/keocam/temperature/RangeText.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

using Json = nlohmann::ordered_json;

struct Field {
  const char* label;
  const char* key;
  ResponseStatuses status;
  std::string text;
  Json value;
};

std::string versionText(const Version& version) {
  return std::to_string(version.major) + "." + std::to_string(version.minor);
}

std::string celsiusText(double celsius, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f °C", decimals, celsius);
  return text;
}

Field numberField(const char* label, const char* key, ResponseStatuses status, uint32_t number) {
  return {label, key, status, std::to_string(number), number};
}

Field textField(const char* label, const char* key, ResponseStatuses status, const std::string& text) {
  return {label, key, status, printable(text), text};
}

Field gainField(const char* label, const char* key, const CoreValue<bool>& high) {
  const std::string gain = high.value ? "high" : "low";
  return {label, key, high.status, gain + " (" + rangesByGain(high.value) + " range)", gain};
}

Field temperatureField(const char* label, const char* key, const CoreValue<double>& celsius, int decimals) {
  return {label, key, celsius.status, celsiusText(celsius.value, decimals), toThousandths(celsius.value)};
}

std::vector<Field> fieldsOf(const CoreInfo& info) {
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

std::string infoLine(const std::string& label, const std::string& value) {
  constexpr std::size_t kLabelColumns = 22;
  std::string text = label;
  text.resize(kLabelColumns, ' ');
  return text + value + '\n';
}

}  // namespace

std::string coreInfoText(const DeviceDetails& camera, const CoreInfo& info) {
  std::string text = infoLine("Camera", nameOf(camera));
  for (const Field& field : fieldsOf(info)) {
    text += infoLine(field.label, field.status == CAM_OK ? field.text : "not read (" + nameOf(field.status) + ")");
  }
  return text;
}

std::string coreInfoJson(const DeviceDetails& camera, const CoreInfo& info) {
  Json object = {{"camera", camera.serial_number}};
  Json errors = Json::object();
  for (const Field& field : fieldsOf(info)) {
    object[field.key] = field.status == CAM_OK ? field.value : Json(nullptr);
    if (field.status != CAM_OK) errors[field.key] = nameOf(field.status);
  }
  if (!errors.empty()) object["errors"] = errors;
  return jsonText(object);
}

std::vector<FailedItem> failuresAmong(const CoreInfo& info) {
  std::vector<FailedItem> failures;
  for (const Field& field : fieldsOf(info)) {
    if (field.status != CAM_OK) failures.push_back({field.label, field.status});
  }
  return failures;
}

}  // namespace keocam::cli
