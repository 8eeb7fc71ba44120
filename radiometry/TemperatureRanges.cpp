// The members that change the range.
#include <unistd.h>

#include "base/Log.h"
#include "calibration/Calibration.h"
#include "radiometry/RangeTable.h"
#include "serial/CameraSerialSettings.h"

namespace {

void refuseHighRange() {
  keocam::printErrorLine(
      "You can not set high range mode (+400 - +1500 [°C]). Current lens is not capable of high range mode ");
}

}  // namespace

RangeModes CameraSerialSettings::GetRangeMode() { return rangeMode; }

void CameraSerialSettings::SetRangeMode(RangeModes mode) {
  // Looked up first of all, so that a selected lens that there is not throws in every range.
  const bool has_high_range =
      !calibrationVect.empty() && calibrationVect.at(static_cast<std::size_t>(currentLensNumber)).has1500Range != 0;
  if (mode == HighRange && !has_high_range) return refuseHighRange();
  // Without a calibration the range in force is applied again, whichever was asked for.
  if (!calibrationVect.empty()) rangeMode = mode;
  SetGainMode(rangeMode <= HighRange ? rangeMode : LowRange);
  // The mode is asked for once per branch, as it always was.
  if (GetRadiometryMode() && rangeMode == LowRange) {
    SetRadiometryHighResolutionMode(true);
  } else if (GetRadiometryMode() && rangeMode != LowRange) {
    SetRadiometryHighResolutionMode(false);
  }
  sleep(1);
}

void CameraSerialSettings::SetGainMode(RangeModes mode) {
  const keocam::RangeRow& row = keocam::rangeRow(mode);
  uint8_t gain = row.gain;
  SetParameter(CODE_10, &gain, RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE);
  keocam::useResponseOf(row);
  if (mode == LowRange) {
    sleep(1);
  } else {
    // Only on the way out of the low range is the core told which table to use.
    sleep(2);
    changeSFFCLens();
    sleep(1);
  }
  DoFFC();
  RecalculateConstants();
}
