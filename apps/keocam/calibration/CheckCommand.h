// keocam calibration check: what is wrong with a calibration file.
#pragma once

#include <string>

#include "apps/keocam/Console.h"
#include "apps/keocam/DataOutput.h"
#include "apps/keocam/ExitStatus.h"
#include "apps/keocam/calibration/CalibrationFile.h"

namespace keocam::cli {

struct CalibrationCheckOptions {
  std::string path;
  CalibrationOverride given;
  bool json = false;
};

/// Failure if something is wrong; Ok if nothing is, or if something is only doubtful. Throws CommandFailure for a file
/// that cannot be read.
ExitStatus runCalibrationCheck(const CalibrationCheckOptions& options, const Console& console, DataOutput& output);

}  // namespace keocam::cli
