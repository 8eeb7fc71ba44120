// The calibration in force: process-wide, of the camera that connected last.
#pragma once

#include <cstdint>
#include <vector>

#include "calibration/CalibrationStruct.h"

/// The lenses, in the order of the calibration text; empty without one. Replaced by
/// CameraSerialSettings::setCalibrationData. Nothing guards it: no other thread may use it meanwhile.
extern std::vector<CalibrationStruct> calibrationVect;

/// Index of the selected lens in calibrationVect.
extern int32_t currentLensNumber;

/// A camera's speed as its serial number tells it.
struct CameraSpeed {
  bool set = false;   ///< the serial number tells it; else the core's part number does
  int32_t speed = 1;  ///< 0 slow, 1 fast, 2 fastest
};
extern CameraSpeed CamSpeed;
