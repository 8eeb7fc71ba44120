// A camera found, connected and acquiring.
#pragma once

#include <memory>
#include <string>

#include "camera/CameraCenter.h"
#include "simulator/SimulatedCamera.h"

namespace e2e {

/// Options for the simulated camera number `index`: its own address and serial number, the others' defaults.
simulator::CameraOptions cameraOptions(unsigned int index, double frame_rate_hz);

/// `camera` with a core that answers at once and moves its shutter fast. Its part number is `part_number`, or that
/// which goes with the sensor.
simulator::CameraOptions withFastCore(simulator::CameraOptions camera, const std::string& part_number = "");

/// The camera of `center` with this serial number; throws std::runtime_error if there is none.
Camera& cameraOf(CameraCenter& center, const std::string& serial_number);

/// Buffers for a test that checks every frame. A reader that a busy machine leaves aside for as long as they last, half
/// a second at 60 frames per second, loses nothing.
constexpr unsigned int kAmpleBuffers = 30;

/// Connects `camera` for its frames, with a pipeline of as many buffers, and leaves its core as it is; throws
/// std::runtime_error if that fails. Stops an acquisition and disconnects at the end, which takes a second. Once per
/// camera.
class Connection {
 public:
  explicit Connection(Camera& camera, unsigned int buffers = kAmpleBuffers);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

 private:
  Camera& camera_;
};

/// Ends a connection of either kind, and deletes its core's object.
void disconnect(Camera& camera);

/// Connects `camera` by Camera::Connect, which starts its core up and takes some 4 seconds; for the rest as Connection.
class StartedConnection {
 public:
  explicit StartedConnection(Camera& camera);
  ~StartedConnection();
  StartedConnection(const StartedConnection&) = delete;
  StartedConnection& operator=(const StartedConnection&) = delete;

 private:
  Camera& camera_;
};

/// A camera connected for its frames that acquires.
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
