#include "calibration/Calibration.h"

std::vector<CalibrationStruct> calibrationVect;
int32_t currentLensNumber = 0;
CameraSpeed CamSpeed;
