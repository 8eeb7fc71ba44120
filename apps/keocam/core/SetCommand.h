// keocam set: changes settings of the core.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/keocam/Console.h"
#include "apps/keocam/DataOutput.h"
#include "apps/keocam/ExitStatus.h"

namespace keocam::cli {

struct SetOptions {
  std::optional<std::string> serial_number;  ///< without: the only camera there is
  std::vector<std::string> assignments;      ///< such as "ffc-mode=manual"
  bool json = false;
};

/// Nothing is sent unless every assignment is right. What was set goes to `output`, as read back. Throws
/// CommandFailure.
ExitStatus runSet(const SetOptions& options, const Console& console, DataOutput& output);

}  // namespace keocam::cli
