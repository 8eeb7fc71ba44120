#include "tests/e2e/VanishingCamera.h"

#include "simulator/core/CoreOptionsFor.h"
#include "tests/e2e/StreamingCamera.h"

namespace e2e {
namespace {

simulator::CameraOptions smallCamera(unsigned int index) {
  simulator::CameraOptions options = cameraOptions(index, 50.0);
  options.sensor = {160, 128};
  options.uart_pacing = false;
  return options;
}

simulator::CoreOptions quickCore(const simulator::CameraOptions& camera, uint32_t table_bytes) {
  simulator::CoreOptions core = simulator::coreOptionsFor(camera);
  core.shutter_ms = 50;
  core.flash.geometry = simulator::flashGeometryFor(table_bytes, table_bytes);
  return core;
}

simulator::CameraOptions withPeer(simulator::CameraOptions options, const std::shared_ptr<PluggedCore>& core) {
  options.uart_peer = core;
  return options;
}

}  // namespace

void PluggedCore::pullAt(uint8_t function, int count, const std::function<void()>& pull) {
  const std::lock_guard<std::mutex> lock(mutex_);
  function_ = function;
  left_ = count;
  pull_ = pull;
}

simulator::UartReply PluggedCore::receive(const uint8_t* data, std::size_t size, const simulator::UartLine& line) {
  const std::lock_guard<std::mutex> lock(mutex_);
  core_.clearLog();
  simulator::UartReply reply = core_.receive(data, size, line);
  for (const simulator::CoreLogEntry& entry : core_.log()) {
    if (left_ > 0 && entry.function() == function_ && --left_ == 0) pull_();
  }
  return reply;
}

VanishingCamera::VanishingCamera(unsigned int index, uint32_t table_bytes)
    : VanishingCamera(smallCamera(index), table_bytes) {}

VanishingCamera::VanishingCamera(simulator::CameraOptions options, uint32_t table_bytes)
    : core_(std::make_shared<PluggedCore>(quickCore(options, table_bytes))),
      simulated_(withPeer(std::move(options), core_)) {}

void VanishingCamera::vanishAt(simulator::Counter counter, uint64_t count) {
  simulated_.faults().vanishAt(counter, simulated_.statistics()[counter] + count);
}

void VanishingCamera::vanishAtCoreMessage(uint8_t function, int count) {
  core_->pullAt(function, count, [this] { vanish(); });
}

}  // namespace e2e
