// Samples of a core's tables, read from it.
#pragma once

#include "apps/keocam/core/CoreSession.h"
#include "apps/keocam/lens/HeldLens.h"

namespace keocam::cli {

/// Throws CommandFailure if they cannot be read. The core stays as it is.
HeldTables readHeldTables(CoreSession& session);

}  // namespace keocam::cli
