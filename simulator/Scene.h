// What the simulated sensor sees: 14-bit thermal pictures as a pure function of settings, window and frame index.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

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
};

/// A moving thermal scene. All pictures are 14-bit values (0..16383) in the host's byte order, row by row.
/// Immutable once built, so any number of threads may render from one object.
class Scene {
 public:
  explicit Scene(const SceneSettings& settings);

  /// The picture of frame `frame_index` (the stream's block id). The same settings, size and index always give the
  /// same values. Throws std::invalid_argument for a window that is empty or larger than the sensor.
  std::vector<uint16_t> render(uint32_t width, uint32_t height, uint64_t frame_index,
                               TestPattern pattern = TestPattern::Off) const;

  const SceneSettings& settings() const { return settings_; }

 private:
  void renderScene(ImageSize window, uint64_t frame_index, std::vector<uint16_t>& picture) const;
  void addMovingObject(ImageSize window, uint64_t frame_index, std::vector<uint16_t>& picture) const;

  SceneSettings settings_;
  std::vector<uint16_t> background_;  ///< everything that does not move, without noise
  std::vector<int16_t> noise_;        ///< longer than a picture, read from another offset for each frame
};

}  // namespace simulator
