#include "apps/keocam/info/CoreSections.h"

#include <algorithm>

#include "apps/keocam/LibraryLimit.h"
#include "apps/keocam/core/CoreFields.h"
#include "apps/keocam/core/RadiometrySettings.h"
#include "apps/keocam/info/CoreModel.h"
#include "serial/PartNumber.h"

namespace keocam::cli {
namespace {

InfoEntry speedEntry(const CoreModel& model, const CameraReadings& readings) {
  constexpr const char* kNames[] = {"slow", "fast", "fastest"};
  const std::optional<int> by_serial = readings.lens ? readings.lens->speed : std::nullopt;
  const char* const name = kNames[std::clamp(by_serial.value_or(model.fast ? 1 : 0), 0, 2)];
  std::string text = std::string(name) + (by_serial ? ", by the serial number" : ", by the part number");
  if (const std::optional<int> limit_hz = libraryLimitOf(readings.camera.serial_number)) {
    text += "; applications get at most " + std::to_string(*limit_hz) + " frames a second, by the serial number";
  }
  return knownEntry("Speed class", "speed_class", text, name);
}

std::string whyPartNumberIsUnread(const CameraReadings& readings) {
  return readings.core ? wordsFor(readings.core->part_number.status) : readings.no_core;
}

std::vector<InfoEntry> modelEntries(const CameraReadings& readings) {
  constexpr std::pair<const char*, const char*> kFields[] = {
      {"Model", "model"}, {"Resolution", "resolution"}, {"Speed class", "speed_class"}, {"Radiometric", "radiometric"}};
  std::vector<InfoEntry> entries;
  if (!readings.core || !readings.core->part_number.ok()) {
    for (const auto& [label, key] : kFields)
      entries.push_back(notReadEntry(label, key, whyPartNumberIsUnread(readings)));
    return entries;
  }
  const std::string& part_number = readings.core->part_number.value;
  const std::optional<CoreModel> model = coreModelOf(part_number);
  if (!model) {
    const char* const reason =
        isTooShort(part_number) ? "the part number is too short to be known" : "the part number is not known";
    for (const auto& [label, key] : kFields) entries.push_back(lackingEntry(label, key, reason));
    return entries;
  }
  return {knownEntry("Model", "model", model->name, model->name),
          knownEntry("Resolution", "resolution", std::to_string(model->width) + " x " + std::to_string(model->height),
                     {model->width, model->height}),
          speedEntry(*model, readings),
          knownEntry("Radiometric", "radiometric", model->radiometric ? "yes" : "no", model->radiometric)};
}

}  // namespace

InfoSection coreSection(const CameraReadings& readings) {
  InfoSection section{"THERMAL CORE", "core", {}};
  CoreInfo core = readings.core.value_or(CoreInfo{});
  core.part_number.value = partNumberIn(core.part_number.value);
  for (const CoreField& field : coreFieldsOf(core)) {
    if (!readings.core) {
      section.entries.push_back(notReadEntry(field.label, field.key, readings.no_core));
    } else if (field.status != CAM_OK) {
      section.entries.push_back(notReadEntry(field.label, field.key, wordsFor(field.status)));
    } else {
      section.entries.push_back(knownEntry(field.label, field.key, field.text, field.value));
    }
  }
  const std::vector<InfoEntry> model = modelEntries(readings);
  section.entries.insert(section.entries.begin() + 1, model.begin(), model.end());
  return section;
}

InfoSection radiometrySection(const CameraReadings& readings) {
  InfoSection section{"RADIOMETRY", "radiometry", {}};
  for (const SettingRow* const setting : listedSettings()) {
    if (!isRadiometric(*setting)) continue;
    const auto reading = std::find_if(readings.radiometry.begin(), readings.radiometry.end(),
                                      [setting](const SettingReading& each) { return each.setting == setting; });
    if (reading == readings.radiometry.end()) {
      section.entries.push_back(notReadEntry(setting->name, setting->name, readings.no_core));
    } else if (reading->value.ok()) {
      const std::string unit = *setting->unit == '\0' ? "" : std::string(" ") + setting->unit;
      section.entries.push_back(
          knownEntry(setting->name, setting->name, settingValueText(*reading) + unit, settingValueJson(*reading)));
    } else if (isLackOfRadiometry(*setting, reading->value.status)) {
      section.entries.push_back(lackingEntry(setting->name, setting->name, "the core is not radiometric"));
    } else {
      section.entries.push_back(notReadEntry(setting->name, setting->name, wordsFor(reading->value.status)));
    }
  }
  return section;
}

}  // namespace keocam::cli
