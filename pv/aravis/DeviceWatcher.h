// Notices that a device has fallen silent or is no longer ours, long before Aravis does.
#pragma once

#include <chrono>
#include <memory>

#include "pv/aravis/DeviceLink.h"
#include "pv/aravis/GvcpClient.h"

namespace keocam {

/// Reads the device's control register a few times a second over a socket of its own, so that a call which Aravis is
/// blocked in does not hold the question up.
class DeviceWatcher {
 public:
  explicit DeviceWatcher(std::shared_ptr<DeviceLink> link);

  /// Asks for the first time, so that silence from the very start on is noticed. Waits a quarter of a second at most.
  void begin();
  /// Watches until the link has ended, and ends it if the device is lost. For a thread of its own.
  void watch();

 private:
  bool pause();
  void ask();

  std::shared_ptr<DeviceLink> link_;
  GvcpClient client_;
  bool asking_ = false;
  bool heard_ = false;  // It answered once: its silence means something.
  std::chrono::milliseconds silence_ms_{0};
  int answers_ = 0;
};

}  // namespace keocam
