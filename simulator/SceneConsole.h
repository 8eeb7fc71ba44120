// The console command for a camera's scene.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simulator/SimulatedCamera.h"

namespace simulator {

/// Carries out a command for the scene; the text says what is wrong. Empty where `name` is no such command.
std::optional<std::string> executeSceneCommand(SimulatedCamera& camera, const std::string& name,
                                               const std::vector<std::string>& arguments);

/// The line of "help" about the scene.
std::string sceneUsageText();

}  // namespace simulator
