// The program's options for a scene in degrees.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "simulator/SimulatedCamera.h"
#include "simulator/calibration/CalibrationFolder.h"

namespace simulator {

class SceneArguments {
 public:
  /// Declares the options; this object must outlive the parsing.
  explicit SceneArguments(CLI::App& app);
  SceneArguments(const SceneArguments&) = delete;
  SceneArguments& operator=(const SceneArguments&) = delete;

  /// To be called after parsing: throws CLI::ValidationError for a scene that does not serve.
  void check() const;

  /// A scene in degrees was asked for.
  bool given() const { return scene_.has_value(); }

  /// The scene seen through a lens, if one is known. Throws std::runtime_error for a lens whose calibration does not
  /// serve.
  TemperatureSceneSettings make(const std::optional<LensPoints>& lens) const;

 private:
  std::optional<std::string> scene_;
  std::string range_ = "middle";
};

}  // namespace simulator
