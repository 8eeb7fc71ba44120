// Discovery of the cameras on every network interface.
#pragma once

#include <string>
#include <vector>

#include "PvDeviceInfo.h"
#include "PvSystem.h"
#include "camera/Camera.h"

namespace keocam {
class CalibrationSource;
}

/// What an application creates first. It searches for cameras and owns a Camera for each; it connects none. Not safe
/// for concurrent use.
class CameraCenter {
 public:
  /// Searches at once, which takes about one second. `sourceLocation` is the folder of calibrations, as
  /// docs/calibration-source.md describes it; it need not exist.
  explicit CameraCenter(std::string sourceLocation);

  /// Deletes the cameras. Disconnect those that are connected first: deleting a camera does not.
  virtual ~CameraCenter();
  CameraCenter(const CameraCenter&) = delete;
  CameraCenter& operator=(const CameraCenter&) = delete;

  /// Appends a Camera for every device that the last search found, and prints how many interfaces and devices it
  /// visited.
  void createKEOcams();

  /// Deletes every camera, searches again, and makes the list anew. Pointers to cameras from before are then invalid.
  /// `deviceInfos` is not emptied: it grows by every pass.
  void RefindCameras();

  std::string sourceLocation;
  PvSystem* pvSystem = nullptr;                            ///< owned
  keocam::CalibrationSource* calibrationSource = nullptr;  ///< owned
  Camera* currentCamera = nullptr;                         ///< made last; may be deleted already after RefindCameras()
  std::vector<Camera*> cameras;                            ///< owned; by interface, then by device
  const PvDeviceInfo* currentDeviceInfo = nullptr;         ///< visited last; owned by `pvSystem`
  std::vector<const PvDeviceInfo*> deviceInfos;            ///< of every Camera ever made here; owned by `pvSystem`

 private:
  void deleteCameras();
};
