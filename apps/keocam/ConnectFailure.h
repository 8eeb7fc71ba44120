// Why a camera could not be connected to, as the command line says it.
#pragma once

#include <string>

#include "PvResult.h"
#include "apps/keocam/CommandFailure.h"
#include "pv/aravis/DeviceDetails.h"

namespace keocam::cli {

/// `code` decides the exit status; `reason` is what the library says, and may be empty.
CommandFailure connectFailure(const DeviceDetails& camera, PvResult::Code code, const std::string& reason);

}  // namespace keocam::cli
