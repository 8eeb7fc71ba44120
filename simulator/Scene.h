// What the simulated sensor sees: 14-bit thermal pictures as a pure function of settings, window and frame index.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "simulator/scene/CoreResponse.h"
#include "simulator/scene/TemperatureScene.h"

namespace simulator {

/// Pixels of a sensor or of a window of it.
struct ImageSize {
  uint32_t width = 640;
  uint32_t height = 512;
};

inline bool operator==(ImageSize a, ImageSize b) { return a.width == b.width && a.height == b.height; }

/// What is put in the picture's place; the values are those of the TestPattern register.
enum class TestPattern : uint32_t {
  Off = 0,                 ///< the thermal scene
  GreyHorizontalRamp = 1,  ///< 0 at the sensor's left edge to 16383 at its right edge
  GreyVerticalRamp = 2,    ///< 0 at the sensor's top to 16383 at its bottom
  GreyDiagonalMoving = 3,  ///< a diagonal ramp that advances 16 counts a frame
};

struct SceneSettings {
  ImageSize sensor;            ///< the whole sensor; a smaller window shows its top left part
  uint64_t seed = 1;           ///< of the sensor's noise and of the spots' places
  uint32_t noise_counts = 12;  ///< standard deviation of the noise; 0 gives a picture without noise
  /// A scene in degrees takes the place of the moving one. It has no noise, and no other use for the seed.
  std::optional<TemperatureSceneSettings> temperatures;
};

class TemperaturePictures;

/// A moving thermal scene, or one in degrees. All pictures are 14-bit values (0..16383) in the host's byte order, row
/// by row. Immutable once built, so any number of threads may render from one object.
class Scene {
 public:
  /// Throws std::invalid_argument for a sensor without pixels, and for a scene in degrees that does not serve.
  explicit Scene(const SceneSettings& settings);

  /// The picture of frame `frame_index` (the stream's block id). The same settings, size, index and core always give
  /// the same values. Only a scene in degrees looks at `core`; the moving one is made of counts. Throws
  /// std::invalid_argument for a window that is empty or larger than the sensor.
  std::vector<uint16_t> render(uint32_t width, uint32_t height, uint64_t frame_index,
                               TestPattern pattern = TestPattern::Off, const CoreResponse& core = {}) const;

  /// By how much a value moves when the sensor is off by one of its counts in high gain.
  double countsPerSensorCount(const CoreResponse& core) const;

  /// Null for the moving scene.
  const TemperatureScene* temperatures() const;

  const SceneSettings& settings() const { return settings_; }

 private:
  void renderScene(ImageSize window, uint64_t frame_index, std::vector<uint16_t>& picture) const;
  void addMovingObject(ImageSize window, uint64_t frame_index, std::vector<uint16_t>& picture) const;

  SceneSettings settings_;
  std::vector<uint16_t> background_;  ///< everything that does not move, without noise
  std::vector<int16_t> noise_;        ///< longer than a picture, read from another offset for each frame
  std::shared_ptr<const TemperaturePictures> temperatures_;  ///< in place of both
};

}  // namespace simulator
