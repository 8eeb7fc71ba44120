#include "radiometry/RangeChange.h"

#include <unistd.h>

#include "calibration/SffcProtocol.h"
#include "radiometry/CoreRadiometry.h"
#include "radiometry/RangeTable.h"
#include "serial/CheckedExchange.h"

namespace keocam {

RangeChangeResult changeRange(CameraSerialSettings& core, RangeModes range) {
  if (range > CameraSerialSettings::HighRange) return {RangeChangeEnd::UnknownRange, CAM_RANGE_ERROR};
  if (range == CameraSerialSettings::HighRange && !core.GetHighRangeLensAvailable()) {
    return {RangeChangeEnd::LensLacksRange, CAM_FEATURE_NOT_ENABLED};
  }
  const RangeRow& row = rangeRow(range);
  const ResponseStatuses gain = checkedWrite(core, CODE_10, &row.gain, {});
  if (gain != CAM_OK) return {RangeChangeEnd::GainNotSet, gain};

  core.rangeMode = range;
  useResponseOf(row);
  core.RecalculateConstants();
  if (range == CameraSerialSettings::LowRange) {
    sleep(1);
  } else {
    sleep(2);
    const ResponseStatuses slot =
        checkedMessage(core, kUseSlot.code, useSlotPayload(range), kUseSlot.wait_us, 0).status;
    if (slot != CAM_OK) return {RangeChangeEnd::TableNotUsed, slot};
    sleep(1);
  }
  if (core.radiometryMode) {
    const ResponseStatuses resolution = writeHighResolution(core, range == CameraSerialSettings::LowRange);
    if (resolution != CAM_OK) return {RangeChangeEnd::ResolutionNotSet, resolution};
  }
  const ResponseStatuses correction = checkedWrite(core, DO_FFC, nullptr, {});
  if (correction != CAM_OK) return {RangeChangeEnd::FlatFieldNotDone, correction};
  sleep(1);
  return {RangeChangeEnd::Changed, CAM_OK};
}

}  // namespace keocam
