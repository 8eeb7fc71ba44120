// keocam info: all that is known of a camera.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/Console.h"
#include "apps/keocam/DataOutput.h"
#include "apps/keocam/ExitStatus.h"

namespace keocam::cli {

struct CameraInfoOptions {
  std::optional<std::string> serial_number;  ///< without: the only camera there is
  std::string calibrations;                  ///< folder of calibrations; empty for none
  bool json = false;
};

/// Changes nothing on camera and core. What could be read goes to `output`, also where something could not, which is
/// then thrown as CommandFailure.
ExitStatus runCameraInfo(const CameraInfoOptions& options, const Console& console, DataOutput& output);

}  // namespace keocam::cli
