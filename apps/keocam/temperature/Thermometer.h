// A camera that streams, and the model by which its frames become temperatures. The core stays as it is.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "apps/keocam/Console.h"
#include "apps/keocam/StopSignal.h"
#include "apps/keocam/core/CoreSession.h"
#include "apps/keocam/frames/CameraFrames.h"
#include "apps/keocam/temperature/Conditions.h"
#include "apps/keocam/temperature/ObjectArguments.h"
#include "apps/keocam/temperature/TemperatureFrame.h"
#include "apps/keocam/temperature/ThermometerOptions.h"
#include "radiometry/TemperatureConverter.h"

namespace keocam::cli {

class Thermometer {
 public:
  /// Connects, asks the core for its state, and starts the acquisition. Throws CommandFailure.
  Thermometer(const ThermometerOptions& options, const ObjectOverrides& overrides, const Console& console);

  /// The next frame; nothing if a stop was requested before one came. Throws CommandFailure (LinkLost) if none comes in
  /// time.
  std::optional<ReceivedFrame> next(const StopSignal& stop);

  /// Follows the core's temperature, which is asked for again when a minute has passed. Throws CommandFailure (Failure)
  /// for a frame that has no 16-bit values.
  TemperatureFrame measured(const ReceivedFrame& frame);

  const Conditions& conditions() const { return conditions_; }

  /// The model by which the latest frame was measured.
  const TemperatureModel& model() const { return converter_->model(); }

 private:
  using SteadyClock = std::chrono::steady_clock;

  void adopt(const ThermometerOptions& options, const ObjectOverrides& overrides);
  void noteCoreTemperature(double celsius);
  void followCoreTemperature();

  const Console& console_;
  CoreSession session_;
  Conditions conditions_;
  std::optional<PinnedConverter> converter_;
  SteadyClock::time_point core_temperature_time_;
  std::optional<CameraFrames> frames_;
};

}  // namespace keocam::cli
