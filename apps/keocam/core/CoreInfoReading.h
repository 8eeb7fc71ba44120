// What a core tells of itself, asked of it.
#pragma once

#include "apps/keocam/core/CoreInfo.h"
#include "apps/keocam/core/CoreSession.h"

namespace keocam::cli {

/// Fills `info` reading by reading. Throws CommandFailure (LinkLost) if the camera goes meanwhile; what had been read
/// then stands in `info`.
void readCoreInfo(CoreSession& session, CoreInfo& info);

}  // namespace keocam::cli
