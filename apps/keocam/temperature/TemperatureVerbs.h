// The verbs for temperatures, as parts of the command line. For .cpp files only.
#pragma once

#include <string>
#include <vector>

#include "apps/keocam/Verbs.h"

namespace keocam::cli {

inline constexpr const char* kRangeVerb = "range";

/// Those that stand by themselves, "range" among them.
std::vector<Verb> temperatureVerbs();

/// The names of those behind "range".
std::vector<std::string> namesBehindRange();

/// Adds them all; see addVerbWithOptions().
void addTemperatureVerbs(CLI::App& app, Command& chosen);

}  // namespace keocam::cli
