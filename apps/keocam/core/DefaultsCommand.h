// keocam core defaults and keocam core factory-defaults: what the core powers up with.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/Console.h"
#include "apps/keocam/ExitStatus.h"

namespace keocam::cli {

struct DefaultsOptions {
  std::optional<std::string> serial_number;  ///< without: the only camera there is
};

/// Makes the present settings those that the core powers up with. Throws CommandFailure.
ExitStatus runDefaults(const DefaultsOptions& options, const Console& console);

struct FactoryDefaultsOptions {
  std::optional<std::string> serial_number;
  bool yes = false;  ///< do not ask
};

/// Makes the factory's settings the present ones and those that the core powers up with. Asks first, and returns
/// Failure for a no. Throws CommandFailure, Usage if there is nobody to ask.
ExitStatus runFactoryDefaults(const FactoryDefaultsOptions& options, const Console& console);

}  // namespace keocam::cli
