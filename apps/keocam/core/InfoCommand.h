// keocam core info: what the core tells of itself.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/Console.h"
#include "apps/keocam/DataOutput.h"
#include "apps/keocam/ExitStatus.h"

namespace keocam::cli {

struct InfoOptions {
  std::optional<std::string> serial_number;  ///< without: the only camera there is
  bool json = false;
};

/// What could be read goes to `output`, also where something could not. Throws CommandFailure.
ExitStatus runInfo(const InfoOptions& options, const Console& console, DataOutput& output);

}  // namespace keocam::cli
