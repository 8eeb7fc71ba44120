// The verbs of the thermal core, as parts of the command line. For .cpp files only.
#pragma once

#include <string>
#include <vector>

#include "apps/keocam/Verbs.h"

namespace keocam::cli {

inline constexpr const char* kCoreVerb = "core";

/// Those that stand by themselves, "core" among them.
std::vector<Verb> coreVerbs();

/// The names of those behind "core".
std::vector<std::string> namesBehindCore();

/// Adds them all; see addVerbWithOptions().
void addCoreVerbs(CLI::App& app, Command& chosen);

}  // namespace keocam::cli
