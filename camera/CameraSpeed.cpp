// The member that tells how fast the camera is: by its calibration, else by its core.
#include "calibration/Calibration.h"
#include "serial/CameraSerialSettings.h"

int CameraSerialSettings::GetCameraSpeed() {
  return CamSpeed.set ? CamSpeed.speed : static_cast<int>(GetIsFastVideoSpeed());
}
