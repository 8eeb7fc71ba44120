// The thermal core of a camera, at hand for as long as a scope lasts.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "PvDevice.h"
#include "apps/keocam/CameraSearch.h"
#include "apps/keocam/ConnectedDevice.h"
#include "apps/keocam/Console.h"
#include "apps/keocam/core/StatusText.h"
#include "serial/CameraSerialSettings.h"
#include "serial/CoreValue.h"

namespace keocam::cli {

/// Connects to the camera without a stream. The core's settings stay as they are.
class CoreSession {
 public:
  /// Finds the camera with `serial_number`, or the only one there is, and connects to nothing yet. Throws
  /// CommandFailure as chooseCamera() does.
  CoreSession(const std::optional<std::string>& serial_number, const Console& console);

  /// Disconnects.
  ~CoreSession();
  CoreSession(const CoreSession&) = delete;
  CoreSession& operator=(const CoreSession&) = delete;

  const DeviceDetails& camera() const { return search_.details()[chosen_]; }

  /// Takes control of the camera, sets up its bridge and sees that the core answers. Throws CommandFailure: InUse,
  /// LinkLost if camera or core do not answer, or Failure. Call it once.
  void connect();

  /// Only once connected.
  CameraSerialSettings& core() { return *core_; }

  /// What describes the camera.
  const PvDeviceInfo& info() const { return *search_.infos()[chosen_]; }

  /// The device; null until connect() has taken control of it. It is there even if the core did not answer then.
  PvDevice* controlledDevice() { return device_.get(); }
  /// The same. Only once connected.
  PvDevice& device() { return *device_; }

  /// One no-operation; prints nothing.
  ResponseStatuses ask();

  /// What `exchange` comes to, a status or a CoreValue. One whose messages get lost or damaged is made up to three
  /// times, so only those serve that may be made twice. Throws CommandFailure (LinkLost) if the camera has gone.
  template <typename Exchange>
  auto attempt(const Exchange& exchange) const {
    for (int left = kAttempts - 1;; --left) {
      auto result = exchange();
      if (statusOf(result) == CAM_OK) return result;
      requireLink();
      if (left == 0 || !isWorthRepeating(statusOf(result))) return result;
    }
  }

  /// Throws CommandFailure (LinkLost) if the camera itself has gone. For use after an exchange that failed.
  void requireLink() const;

 private:
  static constexpr int kAttempts = 3;

  static ResponseStatuses statusOf(ResponseStatuses status) { return status; }
  template <typename T>
  static ResponseStatuses statusOf(const CoreValue<T>& value) {
    return value.status;
  }

  void wake();

  CameraSearch search_;
  std::size_t chosen_;
  ConnectedDevice device_;
  std::optional<CameraSerialSettings> core_;
};

/// A session that is connected already.
std::unique_ptr<CoreSession> connectedCore(const std::optional<std::string>& serial_number, const Console& console);

}  // namespace keocam::cli
