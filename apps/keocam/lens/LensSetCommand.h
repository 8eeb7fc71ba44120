// keocam lens set: writes a lens' tables into the core.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/Console.h"
#include "apps/keocam/ExitStatus.h"

namespace keocam::cli {

struct LensSetOptions {
  std::string name;
  std::optional<std::string> serial_number;  ///< without: the only camera there is
  std::string calibrations;                  ///< folder of calibrations
  bool no_verify = false;
};

/// Takes minutes. A stop signal ends it between two pieces. An unknown lens sends nothing. Throws CommandFailure, which
/// says how both tables stand.
ExitStatus runLensSet(const LensSetOptions& options, const Console& console);

}  // namespace keocam::cli
