// A camera found, connected and acquiring, as an application has it.
#pragma once

#include <memory>
#include <string>

#include "camera/CameraCenter.h"
#include "simulator/SimulatedCamera.h"

namespace e2e {

/// Options for the simulated camera number `index`: its own address and serial number, the others' defaults.
simulator::CameraOptions cameraOptions(unsigned int index, double frame_rate_hz);

/// The camera of `center` with this serial number; throws std::runtime_error if there is none.
Camera& cameraOf(CameraCenter& center, const std::string& serial_number);

/// Connects and starts `camera`; throws std::runtime_error if that fails. Disconnects at the end, which takes a second.
class Acquisition {
 public:
  explicit Acquisition(Camera& camera);
  ~Acquisition();
  Acquisition(const Acquisition&) = delete;
  Acquisition& operator=(const Acquisition&) = delete;

  /// The next frame's data, or null if none came within a second. Released by the next call, or by release().
  const uint8_t* next();
  void release();

 private:
  Camera& camera_;
  bool holding_ = false;
};

}  // namespace e2e
