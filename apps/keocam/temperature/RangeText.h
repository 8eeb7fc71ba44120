// What came of a change of range, in words.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/CommandFailure.h"
#include "radiometry/RangeChange.h"

namespace keocam::cli {

/// "low" for the core's gain of the low range, else "middle or high".
std::string rangesByGain(bool low);

/// How the change failed, with how things stand and what to do; nothing where it did not.
std::optional<CommandFailure> rangeFailure(RangeModes range, const RangeChangeResult& result);

/// What is said after it was done.
std::string rangeDoneText(RangeModes range);

}  // namespace keocam::cli
