// A camera found and connected, with its thermal core at the other end of the serial port.
#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <thread>

#include "serial/CameraSerialSettings.h"
#include "simulator/core/ThermalCore.h"
#include "tests/e2e/FrameCheck.h"
#include "tests/e2e/StreamingCamera.h"

namespace e2e {

/// A small sensor, so that each of its frames can be recomputed beside what a test does.
struct CoreCameraOptions {
  bool pacing = false;  ///< serial bytes take their time at 57600 baud
  uint32_t shutter_ms = 300;
  uint32_t reset_ms = 300;
  std::optional<simulator::FlashGeometry> flash;  ///< else the sensor's
  double core_celsius = 25.0;                     ///< and stays so
};

class CoreCamera {
 public:
  explicit CoreCamera(const CoreCameraOptions& options = {});

  Camera& camera() { return camera_; }
  CameraSerialSettings& core() { return core_; }
  simulator::SimulatedCamera& simulated() { return simulated_; }
  simulator::ThermalCore& simulatedCore() { return *simulated_.options().core; }
  /// A check of this camera's frames that knows what the core does to them.
  FrameCheck frameCheck() { return FrameCheck(simulated_.sceneSettings(), simulated_.options().core); }

  /// Whether the core understood and carried out each frame that it got, and got at least `least`.
  testing::AssertionResult coreGotSoundFramesOnly(std::size_t least);

 private:
  simulator::SimulatedCamera simulated_;
  CameraCenter center_{""};
  Camera& camera_ = cameraOf(center_, simulated_.options().serial);
  Connection connection_{camera_};
  CameraSerialSettings core_{camera_.device, PvDeviceSerialBulk0};
};

/// Frames that are received and checked while a test does something else.
class BackgroundFrames {
 public:
  explicit BackgroundFrames(CoreCamera& camera);
  ~BackgroundFrames();
  BackgroundFrames(const BackgroundFrames&) = delete;
  BackgroundFrames& operator=(const BackgroundFrames&) = delete;

  /// Ends the acquisition. Whether at least `least` frames came, each of them whole and none left out.
  testing::AssertionResult finish(uint64_t least);

 private:
  void receive();

  Camera& camera_;
  FrameCheck check_;
  std::atomic<bool> finishing_{false};
  testing::AssertionResult result_ = testing::AssertionSuccess();  // The thread's until it has been joined.
  std::thread thread_;
};

}  // namespace e2e
