#include "tests/e2e/StreamingCamera.h"

#include <stdexcept>

#include "serial/CameraSerialSettings.h"
#include "simulator/core/CoreOptionsFor.h"
#include "tests/support/VideoConnection.h"

namespace e2e {

simulator::CameraOptions cameraOptions(unsigned int index, double frame_rate_hz) {
  simulator::CameraOptions options;
  options.address = "127.0.0." + std::to_string(2 + index);
  options.serial = "KEOD" + std::to_string(2001 + index);
  options.frame_rate_hz = frame_rate_hz;
  options.seed = 100 + index;  // no two cameras see the same scene
  return options;
}

simulator::CameraOptions withFastCore(simulator::CameraOptions camera, const std::string& part_number) {
  camera.uart_pacing = false;
  simulator::CoreOptions core = simulator::coreOptionsFor(camera);
  core.shutter_ms = 50;
  core.log_entries = 10'000;
  core.thermal.still = true;
  if (!part_number.empty()) core.identity.part_number = part_number;
  camera.core = std::make_shared<simulator::ThermalCore>(core);
  return camera;
}

Camera& cameraOf(CameraCenter& center, const std::string& serial_number) {
  for (Camera* const camera : center.cameras) {
    if (camera->serialNumber == serial_number) return *camera;
  }
  throw std::runtime_error("no camera " + serial_number + " among " + std::to_string(center.cameras.size()) + " found");
}

Connection::Connection(Camera& camera, unsigned int buffers) : camera_(camera) {
  if (!test_support::connectVideo(camera_)) throw std::runtime_error("cannot connect " + camera_.serialNumber);
  const PvResult result = camera_.pipeline->SetBufferCount(buffers);
  if (result.IsOK()) return;
  camera_.Disconnect();
  throw std::runtime_error("cannot give " + camera_.serialNumber + " " + std::to_string(buffers) + " buffers");
}

Connection::~Connection() { disconnect(camera_); }

void disconnect(Camera& camera) {
  camera.Disconnect();
  delete camera.serialSettings;
  camera.serialSettings = nullptr;
}

StartedConnection::StartedConnection(Camera& camera) : camera_(camera) {
  if (camera_.Connect() != 0) throw std::runtime_error("cannot connect and start " + camera_.serialNumber);
}

StartedConnection::~StartedConnection() { disconnect(camera_); }

Acquisition::Acquisition(Camera& camera, unsigned int buffers) : camera_(camera), connection_(camera, buffers) {
  camera_.StartAcquisition();
}

Acquisition::~Acquisition() { release(); }

const uint8_t* Acquisition::next() {
  release();
  camera_.buffer = nullptr;
  const uint8_t* const data = camera_.RetreiveBuffer();
  holding_ = data != nullptr;
  return data;
}

void Acquisition::release() {
  if (holding_) camera_.ReleaseBuffer();
  holding_ = false;
}

}  // namespace e2e
