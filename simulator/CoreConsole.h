// Console commands for a camera's thermal core: its log and its faults.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simulator/SimulatedCamera.h"

namespace simulator {

/// Carries out a command for the core; the text says what is wrong, or is the command's output. Empty where `name` is
/// no such command.
std::optional<std::string> executeCoreCommand(const SimulatedCamera& camera, const std::string& name,
                                              const std::vector<std::string>& arguments);

/// The lines of "help" about the core.
std::string coreHelpText();

/// The line of "status" about the core; empty for a camera without one.
std::string coreStatusText(const SimulatedCamera& camera);

}  // namespace simulator
