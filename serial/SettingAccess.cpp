#include "serial/SettingAccess.h"

#include <algorithm>
#include <cstring>

#include "serial/ParameterTable.h"

namespace keocam {

CallerValue callerValue(FunctionCodes code, const SettingPayload& payload) {
  CallerValue value{};
  const ParameterRow* const row = findParameter(code);
  switch (row != nullptr ? row->writing.form : ValueForm::None) {
    case ValueForm::Byte:
      value.byte = payload[1];
      break;
    case ValueForm::Word:
      value.word = static_cast<uint16_t>(payload[0] << 8 | payload[1]);
      break;
    case ValueForm::Raw:
      value.raw = payload;
      break;
    case ValueForm::None:
      break;
  }
  return value;
}

int getLeniently(CameraSerialSettings& core, const SettingRow& setting) {
  // Zeros stay where the exchange fails.
  SettingPayload payload{};
  const ParameterRow* const row = findParameter(setting.code);
  if (row->reading.form == ReplyForm::Raw) {
    core.GetParameter(setting.code, payload.data(), RADIOMETRIC_NONE, setting.output);
  } else {
    uint16_t word = 0;
    core.GetParameter(setting.code, &word, RADIOMETRIC_NONE, setting.output);
    payload = {static_cast<uint8_t>(word >> 8), static_cast<uint8_t>(word & 0xFF)};
  }
  return decodeSetting(setting, payload);
}

ResponseStatuses setLeniently(CameraSerialSettings& core, const SettingRow& setting, int value) {
  if (!setting.choices.empty() && !hasValue(setting, value)) return CAM_RANGE_ERROR;
  SettingPayload payload{};
  encodeSetting(setting, value, payload);
  CallerValue wanted = callerValue(setting.code, payload);
  return core.SetParameter(setting.code, &wanted, RADIOMETRIC_NONE, setting.output);
}

}  // namespace keocam
