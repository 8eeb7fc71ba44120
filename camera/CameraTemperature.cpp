// The camera's pixels in degrees.
#include "camera/Camera.h"
#include "radiometry/Radiance.h"
#include "serial/CameraSerialSettings.h"

double Camera::CalculateTemperatureC(unsigned short raw) { return serialSettings->RawToTemp(raw); }

double Camera::CalculateTemperatureK(unsigned short raw) { return CalculateTemperatureC(raw) + keocam::kZeroCelsius_K; }
