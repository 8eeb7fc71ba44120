#include "serial/CoreSettings.h"

#include <algorithm>

#include "serial/CheckedExchange.h"
#include "serial/SettingAccess.h"

namespace keocam {
namespace {

Selectors selectorsOf(const SettingRow& setting) { return {RADIOMETRIC_NONE, setting.output}; }

CoreValue<SettingPayload> readPayload(CameraSerialSettings& core, const SettingRow& setting) {
  const CoreValue<ReplyBuffer> reply = checkedRead(core, setting.code, selectorsOf(setting));
  SettingPayload payload{};
  const ParameterRow* const row = findParameter(setting.code);
  const std::size_t size = std::min<std::size_t>(payload.size(), row->reading.reply_bytes);
  if (reply.ok()) std::copy_n(reply.value.payload(), size, payload.begin());
  return {reply.status, payload};
}

}  // namespace

CoreValue<int> readSetting(CameraSerialSettings& core, const SettingRow& setting) {
  const CoreValue<SettingPayload> read = readPayload(core, setting);
  return {read.status, decodeSetting(setting, read.value)};
}

ResponseStatuses writeSetting(CameraSerialSettings& core, const SettingRow& setting, int value) {
  if (!hasValue(setting, value)) return CAM_RANGE_ERROR;
  CoreValue<SettingPayload> payload{CAM_OK, {}};
  if (sharesItsValue(setting)) payload = readPayload(core, setting);
  if (!payload.ok()) return payload.status;
  encodeSetting(setting, value, payload.value);
  const CallerValue wanted = callerValue(setting.code, payload.value);
  return checkedWrite(core, setting.code, &wanted, selectorsOf(setting));
}

}  // namespace keocam
