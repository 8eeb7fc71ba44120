#include "simulator/SceneConsole.h"

#include <stdexcept>

#include "simulator/ConsoleWords.h"
#include "simulator/scene/SceneText.h"

namespace simulator {
namespace {

constexpr const char* kCommand = "scene";
constexpr const char* kMoving = "moving";
constexpr const char* kArguments = "NAME[:key=value,...]|moving";

/// A scene seen through the lens that the camera was started with.
TemperatureSceneSettings throughLens(const SimulatedCamera& camera, const std::string& text) {
  TemperatureSceneSettings scene = parseScene(text);
  if (const auto& start = camera.options().temperatures) {
    scene.correction = start->correction;
    scene.low_gain_range = start->low_gain_range;
  }
  return scene;
}

}  // namespace

std::optional<std::string> executeSceneCommand(SimulatedCamera& camera, const std::string& name,
                                               const std::vector<std::string>& arguments) {
  if (name != kCommand) return std::nullopt;
  if (arguments.size() != 1) return wrongArguments(name, kArguments);
  try {
    if (arguments[0] == kMoving) {
      camera.show(std::nullopt);
    } else {
      camera.show(throughLens(camera, arguments[0]));
    }
  } catch (const std::invalid_argument& error) {
    return std::string(error.what()) + '\n';
  }
  return "";
}

std::string sceneUsageText() {
  return usageLine(kCommand, kArguments, "What the camera sees, as with --scene, or the moving scene again");
}

}  // namespace simulator
