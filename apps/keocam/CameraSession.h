// A camera connected for as long as a scope lasts.
#pragma once

#include <string>

#include "PvDeviceInfo.h"
#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/Console.h"
#include "calibration/CalibrationSource.h"
#include "camera/Camera.h"
#include "pv/aravis/DeviceDetails.h"

namespace keocam::cli {

class CameraSession {
 public:
  /// `info` must outlive this object. Nothing is connected yet.
  CameraSession(const PvDeviceInfo* info, DeviceDetails details, const CalibrationEntry& calibration);

  /// Disconnects and releases everything, whatever state the camera is in.
  ~CameraSession();
  CameraSession(const CameraSession&) = delete;
  CameraSession& operator=(const CameraSession&) = delete;

  /// Connects and starts the core up, which takes some 4 seconds. Throws CommandFailure with the reason: InUse,
  /// LinkLost if the camera does not answer, or Failure. A core that does not answer, or is not known, is a warning.
  /// Call it once.
  void connect(const Console& console);

  Camera& camera() { return camera_; }

 private:
  int connectAndStart();
  CommandFailure failure() const;
  std::string unusablePart() const;
  void warnOfCore(const Console& console) const;

  const PvDeviceInfo* info_;
  DeviceDetails details_;
  Camera camera_;
};

}  // namespace keocam::cli
