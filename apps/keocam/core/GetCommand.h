// keocam get: the core's settings.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/keocam/Console.h"
#include "apps/keocam/DataOutput.h"
#include "apps/keocam/ExitStatus.h"

namespace keocam::cli {

struct GetOptions {
  std::optional<std::string> serial_number;  ///< without: the only camera there is
  std::vector<std::string> names;            ///< none: every setting
  bool json = false;
};

/// What could be read goes to `output`, also where something could not. Throws CommandFailure.
ExitStatus runGet(const GetOptions& options, const Console& console, DataOutput& output);

}  // namespace keocam::cli
