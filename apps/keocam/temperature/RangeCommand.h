// keocam range: the temperature range that the core measures in.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/Console.h"
#include "apps/keocam/DataOutput.h"
#include "apps/keocam/ExitStatus.h"

namespace keocam::cli {

struct RangeShowOptions {
  std::optional<std::string> serial_number;  ///< without: the only camera there is
  bool json = false;
};

struct RangeSetOptions {
  std::string range;
  std::optional<std::string> serial_number;
  std::string calibrations;         ///< folder of calibrations; the high range needs it
  std::optional<std::string> lens;  ///< for the high range; without: the one whose tables the core holds
};

/// By the core's gain, which is the same in the middle and in the high range. Throws CommandFailure.
ExitStatus runRangeShow(const RangeShowOptions& options, const Console& console, DataOutput& output);

/// Takes some seconds. Throws CommandFailure, which says how things stand.
ExitStatus runRangeSet(const RangeSetOptions& options, const Console& console);

}  // namespace keocam::cli
