// From the true temperature of a point to the value of its pixel.
#pragma once

#include "simulator/scene/CoreResponse.h"
#include "simulator/scene/TemperatureScene.h"

namespace simulator {

/// For one scene and one state of the core. Immutable. It keeps a reference to neither.
class PixelResponse {
 public:
  PixelResponse(const TemperatureSceneSettings& settings, const CoreResponse& core);

  /// The value, not rounded and not held in 14 bits. A host with the scene's surroundings and the lens' calibration
  /// makes `celsius` of it again.
  double countsFor(double celsius) const;

  /// By how much the value moves when the sensor is off by what is one count in high gain.
  double countsPerSensorCount(double celsius) const;

 private:
  double linearCounts(double radiance) const;

  std::shared_ptr<const TemperatureCorrection> correction_;
  CalibrationRange range_;
  int32_t core_degrees_;
  PixelScale scale_;
  Gain gain_;
  Sight truth_;   ///< what the sensor gets
  Sight belief_;  ///< what the core takes it for
};

}  // namespace simulator
