// A camera that vanishes from the network at a message that a test names.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

#include "simulator/SimulatedCamera.h"
#include "simulator/core/ThermalCore.h"

namespace e2e {

/// The camera's thermal core, and the hand on the plug: it sees each message that the core gets.
class PluggedCore final : public simulator::UartPeer {
 public:
  explicit PluggedCore(const simulator::CoreOptions& options) : core_(options) {}

  /// `pull` is called when the core has carried out the message with this function code that is number `count` from
  /// now on, before its answer is on the line.
  void pullAt(uint8_t function, int count, const std::function<void()>& pull);

  simulator::UartReply receive(const uint8_t* data, std::size_t size, const simulator::UartLine& line) override;

 private:
  simulator::ThermalCore core_;
  std::mutex mutex_;  // Guards everything below.
  uint8_t function_ = 0;
  int left_ = 0;
  std::function<void()> pull_;
};

/// Camera number `index` of e2e::cameraOptions(), with a small sensor and a core that answers at once. Its pictures are
/// those of its scene, which the core does not change.
class VanishingCamera {
 public:
  /// A slot for lens tables has `table_bytes`.
  explicit VanishingCamera(unsigned int index, uint32_t table_bytes = 512);

  simulator::SimulatedCamera& simulated() { return simulated_; }
  const std::string& serial() const { return simulated_.options().serial; }

  void vanish() { simulated_.faults().vanish(); }
  /// Behind the answer to the command that is counted by `counter` as number `count` from now on.
  void vanishAt(simulator::Counter counter, uint64_t count);
  /// Once the core has carried out a message, before it has answered; see PluggedCore.
  void vanishAtCoreMessage(uint8_t function, int count);
  bool vanished() { return simulated_.faults().vanished(); }
  void comeBack() { simulated_.faults().comeBack(); }

 private:
  VanishingCamera(simulator::CameraOptions options, uint32_t table_bytes);

  std::shared_ptr<PluggedCore> core_;
  simulator::SimulatedCamera simulated_;
};

}  // namespace e2e
