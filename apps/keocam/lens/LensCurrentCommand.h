// keocam lens current: the lens whose tables the core holds.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/Console.h"
#include "apps/keocam/DataOutput.h"
#include "apps/keocam/ExitStatus.h"

namespace keocam::cli {

struct LensCurrentOptions {
  std::optional<std::string> serial_number;  ///< without: the only camera there is
  std::string calibrations;                  ///< folder of calibrations
  bool json = false;
};

/// Reads samples and changes nothing. Throws CommandFailure, Failure where the core holds no lens' tables.
ExitStatus runLensCurrent(const LensCurrentOptions& options, const Console& console, DataOutput& output);

}  // namespace keocam::cli
