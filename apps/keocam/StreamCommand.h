// keocam stream: receives frames from a camera and tells how well that goes.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/Console.h"
#include "apps/keocam/DataOutput.h"
#include "apps/keocam/ExitStatus.h"
#include "apps/keocam/StreamLimits.h"

namespace keocam::cli {

struct StreamOptions {
  std::optional<std::string> serial_number;  ///< without: the only camera there is
  StreamLimits limits;
  std::optional<std::string> picture_path;  ///< a PNG of the last frame
  bool json = false;
};

/// Neither the camera's settings nor its core change. Totals go to `output` however the stream ends. Throws
/// CommandFailure.
ExitStatus runStreamCommand(const StreamOptions& options, const Console& console, DataOutput& output);

}  // namespace keocam::cli
