// Scenes in degrees: the true temperature of every point, as a pure function of settings, place and frame.
#pragma once

#include <cstdint>
#include <memory>

#include "simulator/calibration/CalibrationRange.h"
#include "simulator/scene/Radiance.h"

namespace simulator {

class TemperatureCorrection;
struct ImageSize;

enum class SceneShape : uint8_t {
  Uniform,     ///< low_celsius everywhere
  Gradient,    ///< low_celsius in the top left corner to high_celsius in the bottom right one, even in between
  HotSpot,     ///< a disc of high_celsius with soft edges on low_celsius
  Blackbodies  ///< a row of square plates from low_celsius to high_celsius in equal steps, on background_celsius
};

/// SceneTable.h has the bounds, and which shape looks at what.
struct TemperatureSceneSettings {
  SceneShape shape = SceneShape::Uniform;
  double low_celsius = 30.0;
  double high_celsius = 90.0;
  double background_celsius = 22.0;
  double x = 0.5;               ///< the disc's centre, in parts of the sensor's width
  double y = 0.5;               ///< and of its height
  double size = 0.12;           ///< the disc's diameter, in parts of the sensor's height
  double period_frames = 0;     ///< the disc heats and cools again in so many frames; 0: it stays hot
  double plates = 4;            ///< a whole number
  Surroundings surroundings{};  ///< the truth: a host that knows it measures the true temperatures
  /// The range that the low gain is used for: Middle or High. The core cannot tell one from the other.
  CalibrationRange low_gain_range = CalibrationRange::Middle;
  /// Of the lens that the camera has; null: hosts correct nothing.
  std::shared_ptr<const TemperatureCorrection> correction{};
};

/// Immutable. The place is a pixel of the whole sensor.
class TemperatureScene {
 public:
  /// Throws std::invalid_argument as checkScene(), and as TemperatureCorrection::checkInverse() where there is one.
  TemperatureScene(const TemperatureSceneSettings& settings, ImageSize sensor);

  /// The temperature of what the pixel sees, in the frame of this block id.
  double celsiusAt(uint32_t x, uint32_t y, uint64_t frame) const {
    return lowestCelsius() + (celsiusWhenHot(x, y) - lowestCelsius()) * heatAt(frame);
  }

  /// The same in two parts, which are the place's and the frame's: how warm it gets, and how much of that it is, 0
  /// to 1.
  double celsiusWhenHot(uint32_t x, uint32_t y) const;
  double heatAt(uint64_t frame) const;

  /// All frames are alike: their heat is 1.
  bool still() const;
  double lowestCelsius() const;
  double highestCelsius() const;
  const TemperatureSceneSettings& settings() const { return settings_; }

 private:
  TemperatureSceneSettings settings_;
  double width_;
  double height_;
};

}  // namespace simulator
