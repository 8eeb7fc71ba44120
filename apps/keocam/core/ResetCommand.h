// keocam core reset: restarts the core.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/Console.h"
#include "apps/keocam/ExitStatus.h"

namespace keocam::cli {

struct ResetOptions {
  std::optional<std::string> serial_number;  ///< without: the only camera there is
};

/// Returns once the core answers again. Throws CommandFailure, LinkLost if it does not within ResetWatch::kLongest_ms.
ExitStatus runReset(const ResetOptions& options, const Console& console);

}  // namespace keocam::cli
