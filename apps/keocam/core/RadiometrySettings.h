// What a core that computes temperatures itself can be told of them, in the form of its other settings.
#pragma once

#include <string_view>
#include <vector>

#include "serial/CameraSerialSettings.h"
#include "serial/CoreValue.h"
#include "serial/SettingRow.h"

namespace keocam::cli {

/// Every setting that get and set know: those of all cores, then those of radiometric ones.
std::vector<const SettingRow*> listedSettings();

/// The setting of this name among them, or null.
const SettingRow* findListed(std::string_view name);

/// Only radiometric cores have it.
bool isRadiometric(const SettingRow& setting);

/// Whether that status says of this setting that the core is not radiometric, and how that is said.
bool isLackOfRadiometry(const SettingRow& setting, ResponseStatuses status);
inline constexpr const char* kNotRadiometric = "Only radiometric cores have it, and this one is not radiometric.";

/// A setting's value is a whole number of steps: one to a unit, or ten to the power of these to a unit.
int decimalsOf(const SettingRow& setting);
double inUnits(const SettingRow& setting, int value);
/// To the nearest step. The number must be one that an int can hold.
int inSteps(const SettingRow& setting, double number);

/// As rangeOf(), hasValue(), readSetting() and writeSetting(), for every listed setting.
SettingRange listedRange(const SettingRow& setting);
bool hasListedValue(const SettingRow& setting, int value);
CoreValue<int> readListed(CameraSerialSettings& core, const SettingRow& setting);
ResponseStatuses writeListed(CameraSerialSettings& core, const SettingRow& setting, int value);

}  // namespace keocam::cli
