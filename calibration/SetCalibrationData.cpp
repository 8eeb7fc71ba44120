// A camera's calibration put in force.
#include <exception>

#include "calibration/Calibration.h"
#include "calibration/CalibrationText.h"
#include "serial/CameraSerialSettings.h"

// NOLINTBEGIN(performance-unnecessary-value-param): that the texts are passed by value is the interface's.
void CameraSerialSettings::setCalibrationData(std::string calibrationText, std::string calibrationVersion,
                                              std::string serialNumber) {
  // Given back, not just cleared: the new records need the room.
  std::vector<CalibrationStruct>().swap(calibrationVect);
  currentLensNumber = 0;
  if (calibrationText.empty()) return;
  const int grammar = keocam::calibrationGrammar(calibrationVersion);
  const keocam::CalibrationLayout layout =
      keocam::readCalibrationLayout(calibrationText, grammar, serialNumber, CamSpeed);
  // All room at once, and each record made where it stays: nothing is ever held twice.
  calibrationVect.reserve(layout.records.size());
  for (const keocam::CalibrationRecordText& record : layout.records) {
    keocam::fillCalibration(record, grammar, calibrationVect.emplace_back());
  }
  CamSpeed = layout.speed;
  if (layout.failure) std::rethrow_exception(layout.failure);
}
// NOLINTEND(performance-unnecessary-value-param)
