// What measuring verbs have in common.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/temperature/DisplayUnit.h"
#include "apps/keocam/temperature/ObjectArguments.h"

namespace keocam::cli {

struct ThermometerOptions {
  std::optional<std::string> serial_number;  ///< without: the only camera there is
  std::string calibrations;                  ///< folder of calibrations; empty for none
  std::optional<std::string> lens;           ///< without: the one whose tables the core holds
  std::optional<std::string> range;          ///< name; without: by the core's gain
  std::string unit = "C";
  ObjectArguments object;
};

/// Throws CommandFailure (Usage) for one that there is not.
const DisplayUnit& unitIn(const ThermometerOptions& options);

/// Throws CommandFailure (Usage) for a lens without the folder that tells of it.
void requireFolderForLens(const ThermometerOptions& options);

}  // namespace keocam::cli
