// A camera for tests that connect: it deletes its core's object, which the library leaves to the application.
#pragma once

#include "camera/Camera.h"
#include "serial/CameraSerialSettings.h"

class ScriptedCamera : public Camera {
 public:
  using Camera::Camera;
  ~ScriptedCamera() override { delete serialSettings; }

  int Connect() {
    delete serialSettings;
    serialSettings = nullptr;
    return Camera::Connect();
  }
};
