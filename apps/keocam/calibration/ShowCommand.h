// keocam calibration show: what a calibration file holds.
#pragma once

#include <string>

#include "apps/keocam/Console.h"
#include "apps/keocam/DataOutput.h"
#include "apps/keocam/ExitStatus.h"
#include "apps/keocam/calibration/CalibrationFile.h"

namespace keocam::cli {

struct CalibrationShowOptions {
  std::string path;
  CalibrationOverride given;
  bool json = false;
};

/// What can be read goes to `output`, also where reading then ends. Throws CommandFailure.
ExitStatus runCalibrationShow(const CalibrationShowOptions& options, const Console& console, DataOutput& output);

}  // namespace keocam::cli
