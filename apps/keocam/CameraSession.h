// A camera connected for as long as a scope lasts.
#pragma once

#include "PvDeviceInfo.h"
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

  /// Throws CommandFailure with the reason: InUse, LinkLost if the camera does not answer, or Failure. Call it once.
  void connect();

  Camera& camera() { return camera_; }

 private:
  const PvDeviceInfo* info_;
  DeviceDetails details_;
  Camera camera_;
};

}  // namespace keocam::cli
