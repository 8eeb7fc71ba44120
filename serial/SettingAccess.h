// Reading and writing the settings of the table, leniently as the members of CameraSerialSettings do it.
#pragma once

#include "serial/CameraSerialSettings.h"
#include "serial/SettingRow.h"

namespace keocam {

/// A setting's value in the form that SetParameter takes: a byte, a 16-bit number, or six bytes.
union CallerValue {
  uint8_t byte;
  uint16_t word;
  SettingPayload raw;
};
CallerValue callerValue(FunctionCodes code, const SettingPayload& payload);

/// Reads the setting; what zeros mean if that fails.
int getLeniently(CameraSerialSettings& core, const SettingRow& setting);

/// Writes a setting that does not share its value, by SetParameter. CAM_RANGE_ERROR, with nothing sent, for a value
/// that is none of its choices.
ResponseStatuses setLeniently(CameraSerialSettings& core, const SettingRow& setting, int value);

}  // namespace keocam
