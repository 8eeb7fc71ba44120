// The verbs for calibration files, as parts of the command line. For .cpp files only.
#pragma once

#include <string>
#include <vector>

#include "apps/keocam/Verbs.h"

namespace keocam::cli {

inline constexpr const char* kCalibrationVerb = "calibration";

/// Passes all that stands behind it to the simulator.
inline constexpr const char* kMakeVerb = "make";

Verb calibrationVerb();

/// The names of those behind "calibration".
std::vector<std::string> namesBehindCalibration();

/// Adds them all; see addVerbWithOptions().
void addCalibrationVerbs(CLI::App& app, Command& chosen);

}  // namespace keocam::cli
