// Settings with their values, as a table and as JSON.
#pragma once

#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "apps/keocam/core/StatusText.h"
#include "serial/CoreValue.h"
#include "serial/SettingRow.h"

namespace keocam::cli {

struct SettingReading {
  const SettingRow* setting;
  CoreValue<int> value;
};

/// One that was read, in the setting's unit: a number, a choice by its name, a switch as a boolean.
std::string settingValueText(const SettingReading& reading);
nlohmann::ordered_json settingValueJson(const SettingReading& reading);

/// A heading, and name, value, unit and what can be set, within `width` columns.
std::string settingTable(const std::vector<SettingReading>& readings, std::size_t width);

/// The same without what can be set.
std::string shortSettingTable(const std::vector<SettingReading>& readings, std::size_t width);

/// An object, name to value: numbers, choices by their names, switches as booleans. What could not be read is null, and
/// named with its status in a further object "errors".
std::string settingJson(const std::vector<SettingReading>& readings);

/// Those that could not be read.
std::vector<FailedItem> failuresAmong(const std::vector<SettingReading>& readings);

}  // namespace keocam::cli
