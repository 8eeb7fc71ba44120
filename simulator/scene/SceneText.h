// A scene in degrees as options say it: NAME[:key=value,...]
#pragma once

#include <string>
#include <string_view>

#include "simulator/scene/TemperatureScene.h"

namespace simulator {

/// "hot-spot:high=120,x=0.3". Keys that are not named keep the scene's own values. Throws std::invalid_argument with a
/// text that names what is wrong, and what there is instead.
TemperatureSceneSettings parseScene(std::string_view text);

/// The scenes and their keys, a line each, with bounds and start values.
std::string sceneHelpText();

}  // namespace simulator
