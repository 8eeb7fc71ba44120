// The calibration of one camera out of a folder of calibrations.
#pragma once

#include <string>
#include <vector>

#include "apps/keocam/calibration/LensSummary.h"
#include "calibration/CalibrationSource.h"

namespace keocam::cli {

struct CameraCalibration {
  CalibrationEntry entry;
  std::string text_path;  ///< for messages
  std::vector<LensSummary> lenses;
};

/// Throws CommandFailure (Usage) without a folder: to be asked before anything that takes time.
void requireFolder(const std::string& folder);

/// Throws CommandFailure: Failure where it has no usable entry for the camera, with the reason
/// on standard error, or where the entry's text cannot be read to its end.
CameraCalibration calibrationOf(const std::string& serial_number, const std::string& folder);

}  // namespace keocam::cli
