#include "radiometry/CoreRadiometry.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "radiometry/Radiance.h"
#include "radiometry/RadiometricModel.h"
#include "radiometry/RangeTable.h"
#include "serial/CheckedExchange.h"
#include "serial/CoreReadings.h"
#include "serial/PartNumber.h"

namespace keocam {

namespace core_parameters {
constexpr double kHighestTemperature = 655.35;
constexpr CoreObjectParameter emissivity{"emissivity", "of the object", "", RADIOMETRIC_EMISSIVITY, 0.5, 1.0, 8192.0};
constexpr CoreObjectParameter reflectedTemperature{"reflected-temperature",
                                                   "of what the object reflects",
                                                   "°C",
                                                   RADIOMETRIC_REFLECTED_TEMPERATURE,
                                                   0.0,
                                                   kHighestTemperature,
                                                   100.0};
constexpr CoreObjectParameter atmosphericTemperature{"atmospheric-temperature",
                                                     "of the air between camera and object",
                                                     "°C",
                                                     RADIOMETRIC_ATMOSPHERIC_TEMPERATURE,
                                                     0.0,
                                                     kHighestTemperature,
                                                     100.0};
}  // namespace core_parameters

namespace {

constexpr std::array<const CoreObjectParameter*, 3> kAll = {
    &core_parameters::emissivity, &core_parameters::reflectedTemperature, &core_parameters::atmosphericTemperature};

constexpr uint32_t kResolutionSelector = 0;
constexpr uint32_t kModeSelector = 1;

CoreValue<uint16_t> readWord(CameraSerialSettings& core, FunctionCodes code, const Selectors& selectors) {
  const CoreValue<ReplyBuffer> reply = checkedRead(core, code, selectors);
  if (!reply.ok()) return {reply.status, 0};
  const uint8_t* const bytes = reply.value.payload();
  return {reply.status, static_cast<uint16_t>(bytes[0] << 8 | bytes[1])};
}

Selectors selectorOf(const CoreObjectParameter& parameter) {
  Selectors selectors;
  selectors.radiometric = parameter.code;
  return selectors;
}

Selectors radiometrySelector(uint32_t selector) {
  Selectors selectors;
  selectors.radiometry = selector;
  return selectors;
}

CoreValue<bool> readSwitch(CameraSerialSettings& core, uint32_t selector) {
  const CoreValue<uint16_t> word = readWord(core, RADIOMETRY, radiometrySelector(selector));
  return {word.status, word.value != 0};
}

ResponseStatuses writeSwitch(CameraSerialSettings& core, uint32_t selector, bool on, bool& known) {
  const uint8_t value = on ? 1 : 0;
  const ResponseStatuses status = checkedWrite(core, RADIOMETRY, &value, radiometrySelector(selector));
  if (status == CAM_OK) known = on;
  return status;
}

}  // namespace

CoreObjectParameters allCoreObjectParameters() { return {kAll.data(), kAll.size()}; }

const CoreObjectParameter* findCoreObjectParameter(std::string_view name) {
  const auto* const found =
      std::find_if(kAll.begin(), kAll.end(), [name](const auto* row) { return row->name == name; });
  return found != kAll.end() ? *found : nullptr;
}

CoreValue<double> readCoreObjectParameter(CameraSerialSettings& core, const CoreObjectParameter& parameter) {
  const CoreValue<uint16_t> word = readWord(core, RADIOMETRIC_PARAMETER, selectorOf(parameter));
  return {word.status, word.value / parameter.steps_per_unit};
}

ResponseStatuses writeCoreObjectParameter(CameraSerialSettings& core, const CoreObjectParameter& parameter,
                                          double value) {
  if (!(value >= parameter.lowest && value <= parameter.highest)) return CAM_RANGE_ERROR;
  const auto word = static_cast<uint16_t>(std::lround(value * parameter.steps_per_unit));
  return checkedWrite(core, RADIOMETRIC_PARAMETER, &word, selectorOf(parameter));
}

CoreValue<bool> readRadiometryMode(CameraSerialSettings& core) { return readSwitch(core, kModeSelector); }

ResponseStatuses writeRadiometryMode(CameraSerialSettings& core, bool on) {
  return writeSwitch(core, kModeSelector, on, core.radiometryMode);
}

CoreValue<bool> readHighResolution(CameraSerialSettings& core) { return readSwitch(core, kResolutionSelector); }

ResponseStatuses writeHighResolution(CameraSerialSettings& core, bool high) {
  return writeSwitch(core, kResolutionSelector, high, core.radiometryHighResolutionMode);
}

CoreValue<bool> readHighGain(CameraSerialSettings& core) {
  const CoreValue<uint16_t> gain = readWord(core, CODE_10, {});
  return {gain.status, gain.value != rangeRow(CameraSerialSettings::MiddleRange).gain};
}

ResponseStatuses adoptCoreState(CameraSerialSettings& core, RangeModes otherwise) {
  const CoreValue<std::string> part_number = readPartNumber(core);
  const CoreValue<bool> high_gain = part_number.ok() ? readHighGain(core) : CoreValue<bool>{part_number.status, false};
  if (!high_gain.ok()) return high_gain.status;
  const bool radiometric = part_number.value.size() > kRadiometryLetter && isRadiometric(part_number.value);

  CoreValue<bool> mode{CAM_OK, false};
  CoreValue<bool> high_resolution{CAM_OK, false};
  std::array<CoreValue<double>, kAll.size()> object{};
  if (radiometric) {
    mode = readRadiometryMode(core);
    if (!mode.ok()) return mode.status;
    high_resolution = readHighResolution(core);
    if (!high_resolution.ok()) return high_resolution.status;
    for (std::size_t i = 0; i < kAll.size(); ++i) {
      object[i] = readCoreObjectParameter(core, *kAll[i]);
      if (!object[i].ok()) return object[i].status;
    }
    ::emissivity = object[0].value;
    ::reflectedTemperature = object[1].value + kZeroCelsius_K;
    ::atmosphericTemperature = object[2].value + kZeroCelsius_K;
  }
  core.isRadiometric = radiometric;
  core.radiometryMode = mode.value;
  core.radiometryHighResolutionMode = high_resolution.value;
  core.rangeMode = high_gain.value ? CameraSerialSettings::LowRange : otherwise;
  useResponseOf(rangeRow(core.rangeMode));
  core.RecalculateConstants();
  return CAM_OK;
}

}  // namespace keocam
