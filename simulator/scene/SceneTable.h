// The scenes in degrees and their keys, one row each: options, checks and help are made from them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "simulator/scene/TemperatureScene.h"

namespace simulator {

constexpr std::size_t kSceneShapes = 4;
constexpr std::size_t kSceneKeys = 15;

struct SceneRow {
  SceneShape shape;
  std::string_view name;
  std::string_view help;
  TemperatureSceneSettings (*start)();  ///< the settings of a scene that names no key
};

/// In the order of SceneShape.
const std::array<SceneRow, kSceneShapes>& sceneRows();

/// A number that a scene has.
struct SceneKey {
  std::string_view name;
  std::string_view unit;
  std::string_view help;
  uint32_t shapes;  ///< bit n: the scene of row n looks at it
  double minimum;
  double maximum;
  bool whole;
  double& (*of)(TemperatureSceneSettings& settings);

  bool isOf(SceneShape shape) const { return ((shapes >> static_cast<uint32_t>(shape)) & 1U) != 0; }
};

const std::array<SceneKey, kSceneKeys>& sceneKeys();

/// Throws std::invalid_argument with a text that names the value that does not serve and its bounds.
void checkScene(const TemperatureSceneSettings& settings);

}  // namespace simulator
