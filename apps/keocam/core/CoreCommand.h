// Commands to the core that have no argument.
#pragma once

#include <string>

#include "apps/keocam/core/CoreSession.h"
#include "serial/FunctionCodes.h"

namespace keocam::cli {

/// Sends the command and returns once the core has accepted it. `subject` begins the sentence of the CommandFailure
/// that is thrown if it does not, such as "The reset".
void command(CoreSession& session, FunctionCodes code, const std::string& subject);

}  // namespace keocam::cli
