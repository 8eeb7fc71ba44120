// keocam snapshot: one frame as a file.
#pragma once

#include <string>
#include <vector>

#include "apps/keocam/Console.h"
#include "apps/keocam/ExitStatus.h"
#include "apps/keocam/temperature/ThermometerOptions.h"

namespace keocam::cli {

struct SnapshotOptions {
  ThermometerOptions thermometer;
  std::string path;
  std::string palette;            ///< empty: "thermal"
  std::vector<std::string> span;  ///< empty, or the two temperatures that the palette's ends stand for
};

/// Changes nothing on the core. The file is complete or not there. Throws CommandFailure.
ExitStatus runSnapshot(const SnapshotOptions& options, const Console& console);

}  // namespace keocam::cli
