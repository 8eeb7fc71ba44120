// A simulated camera whose thermal core takes no time to think, and the library's control of it.
#pragma once

#include <memory>
#include <string>

#include "camera/CameraCenter.h"
#include "serial/CameraSerialSettings.h"
#include "simulator/SimulatedCamera.h"
#include "simulator/core/CoreOptionsFor.h"

namespace bench {

/// Of a start bit, eight data bits and a stop bit at 57600 baud.
constexpr double kCharacter_ms = 10.0 * 1000.0 / 57600.0;

simulator::CameraOptions cameraWithCore(const std::string& serial, const std::string& address, bool pacing,
                                        const simulator::FlashGeometry& flash = simulator::flashGeometryFor(512));

/// A connected camera and its core, started up. Throws std::runtime_error if that fails.
class BridgedCore {
 public:
  explicit BridgedCore(Camera& camera);
  ~BridgedCore();
  BridgedCore(const BridgedCore&) = delete;
  BridgedCore& operator=(const BridgedCore&) = delete;

  CameraSerialSettings& core() { return *core_; }

 private:
  Camera& camera_;
  std::unique_ptr<CameraSerialSettings> core_;
};

}  // namespace bench
