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

/// Buffers for a test that checks every frame. A reader that a busy machine leaves aside for as long as they last, half
/// a second at 60 frames per second, loses nothing.
constexpr unsigned int kAmpleBuffers = 30;

/// Connects `camera`, with a pipeline of as many buffers; throws std::runtime_error if that fails. Stops an acquisition
/// and disconnects at the end, which takes a second.
class Connection {
 public:
  explicit Connection(Camera& camera, unsigned int buffers = kAmpleBuffers);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

 private:
  Camera& camera_;
};

/// A connected camera that acquires.
class Acquisition {
 public:
  explicit Acquisition(Camera& camera, unsigned int buffers = kAmpleBuffers);
  ~Acquisition();
  Acquisition(const Acquisition&) = delete;
  Acquisition& operator=(const Acquisition&) = delete;

  /// The next frame's data, or null if none came within a second. Released by the next call, or by release().
  const uint8_t* next();
  void release();

 private:
  Camera& camera_;
  Connection connection_;
  bool holding_ = false;
};

}  // namespace e2e
