// keocam ffc: one flat-field correction.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/Console.h"
#include "apps/keocam/ExitStatus.h"

namespace keocam::cli {

struct FfcOptions {
  std::optional<std::string> serial_number;  ///< without: the only camera there is
};

/// Returns when the core has accepted the command; the correction itself takes about a second more. Throws
/// CommandFailure.
ExitStatus runFfc(const FfcOptions& options, const Console& console);

}  // namespace keocam::cli
