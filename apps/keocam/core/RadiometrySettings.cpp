#include "apps/keocam/core/RadiometrySettings.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "radiometry/CoreRadiometry.h"
#include "serial/CoreSettings.h"

namespace keocam::cli {
namespace {

constexpr SettingChoice kOffOn[] = {{0, 0, "off"}, {1, 1, "on"}};
constexpr SettingChoice kLowHigh[] = {{0, 0, "low"}, {1, 1, "high"}};

constexpr SettingRow switchRow(const char* name, const char* meaning, const SettingChoice (&choices)[2]) {
  return {name, meaning, "", RADIOMETRY, DIGITAL_OUTPUT_NONE, SettingForm::Choice, {choices, 2}};
}

// A switch, or an object parameter in whole steps that are coarser than the core's own, so that what is written is
// what is read back.
struct RadiometryRow {
  SettingRow setting;
  int decimals;
  const CoreObjectParameter* parameter;
  CoreValue<bool> (*read)(CameraSerialSettings& core);
  ResponseStatuses (*write)(CameraSerialSettings& core, bool on);
};

RadiometryRow parameterRow(const CoreObjectParameter& parameter, int decimals) {
  const SettingRow setting{parameter.name,
                           parameter.meaning,
                           parameter.unit,
                           RADIOMETRIC_PARAMETER,
                           DIGITAL_OUTPUT_NONE,
                           SettingForm::Word,
                           {}};
  return {setting, decimals, &parameter, nullptr, nullptr};
}

const RadiometryRow (&rows())[5] {
  static const RadiometryRow kRows[] = {
      parameterRow(core_parameters::emissivity, 3),
      parameterRow(core_parameters::reflectedTemperature, 2),
      parameterRow(core_parameters::atmosphericTemperature, 2),
      {switchRow("radiometry", "whether the core sends temperatures", kOffOn), 0, nullptr, readRadiometryMode,
       writeRadiometryMode},
      {switchRow("radiometry-resolution", "of these: 0.4 K, or 0.04 K up to some 380 °C", kLowHigh), 0, nullptr,
       readHighResolution, writeHighResolution},
  };
  return kRows;
}

const RadiometryRow* rowOf(const SettingRow& setting) {
  const auto* const found = std::find_if(std::begin(rows()), std::end(rows()),
                                         [&setting](const RadiometryRow& row) { return &row.setting == &setting; });
  return found != std::end(rows()) ? found : nullptr;
}

double stepsPerUnit(const SettingRow& setting) { return std::pow(10.0, decimalsOf(setting)); }

}  // namespace

std::vector<const SettingRow*> listedSettings() {
  const SettingRows all = allSettings();
  std::vector<const SettingRow*> listed(all.begin(), all.end());
  for (const RadiometryRow& row : rows()) listed.push_back(&row.setting);
  return listed;
}

const SettingRow* findListed(std::string_view name) {
  if (const SettingRow* const setting = findSetting(name)) return setting;
  for (const RadiometryRow& row : rows()) {
    if (name == row.setting.name) return &row.setting;
  }
  return nullptr;
}

bool isRadiometric(const SettingRow& setting) { return rowOf(setting) != nullptr; }

bool isLackOfRadiometry(const SettingRow& setting, ResponseStatuses status) {
  return isRadiometric(setting) && (status == CAM_FEATURE_NOT_ENABLED || status == CAM_UNDEFINED_FUNCTION_ERROR);
}

int decimalsOf(const SettingRow& setting) {
  const RadiometryRow* const row = rowOf(setting);
  return row != nullptr ? row->decimals : 0;
}

double inUnits(const SettingRow& setting, int value) { return value / stepsPerUnit(setting); }

int inSteps(const SettingRow& setting, double number) {
  return static_cast<int>(std::lround(number * stepsPerUnit(setting)));
}

SettingRange listedRange(const SettingRow& setting) {
  const RadiometryRow* const row = rowOf(setting);
  if (row == nullptr) return rangeOf(setting);
  if (row->parameter == nullptr) return {0, 1};
  return {inSteps(setting, row->parameter->lowest), inSteps(setting, row->parameter->highest)};
}

bool hasListedValue(const SettingRow& setting, int value) {
  if (!isRadiometric(setting)) return hasValue(setting, value);
  const SettingRange range = listedRange(setting);
  return value >= range.lowest && value <= range.highest;
}

CoreValue<int> readListed(CameraSerialSettings& core, const SettingRow& setting) {
  const RadiometryRow* const row = rowOf(setting);
  if (row == nullptr) return readSetting(core, setting);
  if (row->parameter == nullptr) {
    const CoreValue<bool> on = row->read(core);
    return {on.status, on.value ? 1 : 0};
  }
  const CoreValue<double> value = readCoreObjectParameter(core, *row->parameter);
  return {value.status, inSteps(setting, value.value)};
}

ResponseStatuses writeListed(CameraSerialSettings& core, const SettingRow& setting, int value) {
  const RadiometryRow* const row = rowOf(setting);
  if (row == nullptr) return writeSetting(core, setting, value);
  if (row->parameter == nullptr) return row->write(core, value != 0);
  return writeCoreObjectParameter(core, *row->parameter, inUnits(setting, value));
}

}  // namespace keocam::cli
