// keocam lens list: the lenses of a camera's calibration.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/Console.h"
#include "apps/keocam/DataOutput.h"
#include "apps/keocam/ExitStatus.h"

namespace keocam::cli {

struct LensListOptions {
  std::optional<std::string> serial_number;  ///< with it no network is needed; without: the only camera there is
  std::string calibrations;                  ///< folder of calibrations
  bool json = false;
};

/// Connects to nothing. Throws CommandFailure.
ExitStatus runLensList(const LensListOptions& options, const Console& console, DataOutput& output);

}  // namespace keocam::cli
