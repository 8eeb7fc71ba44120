// The statuses of exchanges with the thermal core, in words: what happened, and what to do.
#pragma once

#include <string>
#include <vector>

#include "apps/keocam/CommandFailure.h"
#include "serial/ResponseStatuses.h"

namespace keocam::cli {

/// Such as "CAM_RANGE_ERROR"; "UNKNOWN_ERROR" for a status that has no name.
std::string nameOf(ResponseStatuses status);

/// Such as "the core refuses the value (CAM_RANGE_ERROR)".
std::string wordsFor(ResponseStatuses status);

/// What to do about it, as a sentence with its full stop.
std::string adviceOn(ResponseStatuses status);

/// LinkLost where no valid answer came, else Failure.
ExitStatus exitStatusOf(ResponseStatuses status);

/// Whether the same message may do better next time, because it was lost or damaged on its way.
bool isWorthRepeating(ResponseStatuses status);

/// Something that was asked of the core in vain.
struct FailedItem {
  std::string name;
  ResponseStatuses status;
};

/// How a command ends that could not read some of what it was asked for: a line per status, with the names.
CommandFailure notRead(const std::vector<FailedItem>& items);

}  // namespace keocam::cli
