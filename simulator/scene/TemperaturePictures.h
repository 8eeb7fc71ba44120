// Pictures of a scene in degrees, fast enough for a stream.
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

#include "simulator/Scene.h"
#include "simulator/scene/CoreResponse.h"
#include "simulator/scene/TemperatureScene.h"

namespace simulator {

/// Any number of threads may render from one object. What the core's state asks for is worked out once and kept until
/// it changes: a table from temperatures to values, and of a still scene the picture.
class TemperaturePictures {
 public:
  /// Throws std::invalid_argument as TemperatureScene.
  TemperaturePictures(const TemperatureSceneSettings& settings, ImageSize sensor);

  /// The top left part of the sensor's picture; the window must fit.
  void render(ImageSize window, uint64_t frame, const CoreResponse& core, std::vector<uint16_t>& picture) const;

  /// PixelResponse::countsPerSensorCount() in the middle of the scene's temperatures.
  double countsPerSensorCount(const CoreResponse& core) const;

  const TemperatureScene& scene() const { return scene_; }

 private:
  /// Values by temperature, in equal steps from the scene's lowest.
  struct ValueTable {
    double steps_per_kelvin;
    std::vector<float> halves_up;  ///< values held in 14 bits and half a count more, so that cutting rounds to nearest
  };
  ValueTable tableFor(const CoreResponse& core) const;
  void renderRows(ImageSize window, double heat, std::vector<uint16_t>& picture) const;

  TemperatureScene scene_;
  ImageSize sensor_;
  std::vector<double> rise_kelvin_;  ///< of every pixel when hot, above the scene's lowest
  mutable std::mutex mutex_;         ///< guards what follows
  mutable std::optional<CoreResponse> core_;
  mutable ValueTable table_{};
  mutable std::vector<uint16_t> still_;  ///< the whole sensor's picture
};

}  // namespace simulator
