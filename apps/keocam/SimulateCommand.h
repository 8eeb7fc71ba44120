// keocam simulate: runs the camera in software.
#pragma once

#include <string>
#include <vector>

namespace keocam::cli {

/// Replaces this program by `keocam-simulator` with these arguments: the one beside this program, or else the first on
/// PATH. Returns never; throws CommandFailure if there is none or it cannot be run.
[[noreturn]] void runSimulate(const std::vector<std::string>& arguments);

}  // namespace keocam::cli
