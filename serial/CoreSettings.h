// The thermal core's settings with value and status together, and a table of them for user interfaces.
//
//     const auto contrast = keocam::readSetting(core, keocam::settings::contrast);
//     if (contrast.ok()) use(contrast.value);
//     ResponseStatuses status = keocam::writeSetting(core, keocam::settings::ffcMode, FFCModes::Manual);
#pragma once

#include <string_view>

#include "serial/CameraSerialSettings.h"
#include "serial/CoreValue.h"
#include "serial/SettingRow.h"

namespace keocam {

/// A setting with the type of its values.
template <typename T>
struct Setting : SettingRow {
  constexpr explicit Setting(const SettingRow& row) : SettingRow(row) {}
};

namespace settings {

extern const Setting<FFCModes> ffcMode;
extern const Setting<unsigned short> ffcPeriod;
extern const Setting<unsigned short> ffcTempDelta;
extern const Setting<unsigned short> ffcWarnTime;
extern const Setting<XPBusModes> xpBusMode;
extern const Setting<LVDSModes> lvdsMode;
extern const Setting<DigitalOutputDepth> cmosBitDepth;
extern const Setting<DigitalOutputDepth> lvdsBitDepth;
extern const Setting<ExternalSyncModes> externalSync;
extern const Setting<TestPatterns> testPattern;
extern const Setting<bool> invertVideo;
extern const Setting<bool> revertVideo;
extern const Setting<Palettes> palette;
extern const Setting<bool> analogVideo;
extern const Setting<VideoColorModes> videoColorMode;
extern const Setting<VideoStandards> videoStandard;
extern const Setting<SpotDisplayModes> spotDisplayMode;
extern const Setting<SpotMeterModes> spotMeterMode;
extern const Setting<AGCTypes> agcType;
extern const Setting<unsigned short> contrast;
extern const Setting<unsigned short> brightness;
extern const Setting<short> brightnessBias;
extern const Setting<unsigned short> agcFilter;
extern const Setting<unsigned short> plateauLevel;
extern const Setting<unsigned short> agcMidpoint;
extern const Setting<unsigned short> maxAgcGain;
extern const Setting<unsigned short> ddeGain;
extern const Setting<unsigned int> spatialThreshold;
extern const Setting<ThresholdUnits> isothermUnit;
extern const Setting<short> isothermLower;
extern const Setting<short> isothermMiddle;
extern const Setting<short> isothermUpper;

}  // namespace settings

/// Every setting above as a number, in that order.
struct SettingRows {
  const SettingRow* const* first;
  std::size_t count;
  const SettingRow* const* begin() const { return first; }
  const SettingRow* const* end() const { return first + count; }
};
SettingRows allSettings();

/// The setting of this name, such as "ffc-mode", or null.
const SettingRow* findSetting(std::string_view name);

/// Reads a setting in one exchange. Unlike the members of CameraSerialSettings it checks the whole answer, function
/// code, length and both CRCs, and prints nothing. What has come late of earlier answers is thrown away first; one
/// that comes even later is told from this one's by its function code, but not if that is the same. UNKNOWN_ERROR:
/// there was no answer, or it was not to this question; CAM_CHECKSUM_ERROR, CAM_BYTE_COUNT_ERROR: core or host found
/// the other's message damaged.
CoreValue<int> readSetting(CameraSerialSettings& core, const SettingRow& setting);

/// Writes a setting. CAM_RANGE_ERROR, with nothing sent, for a value that the setting does not have. A setting that
/// shares its value on the core with others (invert and revert, the isotherms) is read first, and nothing is written if
/// that fails. After VideoStandards a flat-field correction is due, which DoFFC does. Errors as for reading.
ResponseStatuses writeSetting(CameraSerialSettings& core, const SettingRow& setting, int value);

template <typename T>
CoreValue<T> readSetting(CameraSerialSettings& core, const Setting<T>& setting) {
  const CoreValue<int> read = readSetting(core, static_cast<const SettingRow&>(setting));
  return {read.status, static_cast<T>(read.value)};
}

template <typename T>
ResponseStatuses writeSetting(CameraSerialSettings& core, const Setting<T>& setting, T value) {
  return writeSetting(core, static_cast<const SettingRow&>(setting), static_cast<int>(value));
}

}  // namespace keocam
