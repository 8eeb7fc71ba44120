#include "apps/keocam/core/SettingReport.h"

#include <nlohmann/json.hpp>

#include "apps/keocam/Json.h"
#include "apps/keocam/core/RadiometrySettings.h"
#include "apps/keocam/core/SettingText.h"
#include "apps/keocam/terminal/WrappedTable.h"

namespace keocam::cli {
namespace {

using Json = nlohmann::ordered_json;

Json jsonOf(const SettingReading& reading) { return reading.value.ok() ? settingValueJson(reading) : Json(nullptr); }

TableRow shortRow(const SettingReading& reading) {
  const auto& [setting, value] = reading;
  return {setting->name, value.ok() ? settingValueText(reading) : "not read", setting->unit};
}

}  // namespace

std::string settingValueText(const SettingReading& reading) { return valueText(*reading.setting, reading.value.value); }

Json settingValueJson(const SettingReading& reading) {
  const auto& [setting, value] = reading;
  if (isSwitch(*setting)) return value.value != 0;
  if (decimalsOf(*setting) > 0) return inUnits(*setting, value.value);
  if (setting->choices.empty()) return value.value;
  return valueText(*setting, value.value);
}

std::string settingTable(const std::vector<SettingReading>& readings, std::size_t width) {
  std::vector<TableRow> rows;
  rows.reserve(readings.size());
  for (const SettingReading& reading : readings) {
    rows.push_back(shortRow(reading));
    rows.back().push_back(acceptedText(*reading.setting));
  }
  return wrappedTable({"NAME", "VALUE", "UNIT", "TAKES"}, rows, width);
}

std::string shortSettingTable(const std::vector<SettingReading>& readings, std::size_t width) {
  std::vector<TableRow> rows;
  rows.reserve(readings.size());
  for (const SettingReading& reading : readings) rows.push_back(shortRow(reading));
  return formatTable({"NAME", "VALUE", "UNIT"}, rows, width);
}

std::string settingJson(const std::vector<SettingReading>& readings) {
  Json object = Json::object();
  for (const SettingReading& reading : readings) object[reading.setting->name] = jsonOf(reading);
  for (const FailedItem& item : failuresAmong(readings)) object["errors"][item.name] = nameOf(item.status);
  return jsonText(object);
}

std::vector<FailedItem> failuresAmong(const std::vector<SettingReading>& readings) {
  std::vector<FailedItem> failures;
  for (const auto& [setting, value] : readings) {
    if (!value.ok()) failures.push_back({setting->name, value.status});
  }
  return failures;
}

}  // namespace keocam::cli
