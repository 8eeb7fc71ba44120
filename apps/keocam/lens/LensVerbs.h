// The verbs for lenses, as parts of the command line. For .cpp files only.
#pragma once

#include <string>
#include <vector>

#include "apps/keocam/Verbs.h"

namespace keocam::cli {

inline constexpr const char* kLensVerb = "lens";

Verb lensVerb();

/// The names of those behind "lens".
std::vector<std::string> namesBehindLens();

/// Adds them all; see addVerbWithOptions().
void addLensVerbs(CLI::App& app, Command& chosen);

}  // namespace keocam::cli
