#include "apps/keocam/temperature/LensChoice.h"

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/lens/LensName.h"
#include "calibration/Calibration.h"

namespace keocam::cli {

std::optional<CameraCalibration> calibrationIn(const std::string& folder, const DeviceDetails& camera) {
  if (folder.empty()) return std::nullopt;
  return calibrationOf(camera.serial_number, folder);
}

std::string putLensInForce(const CameraCalibration& calibration, const std::optional<std::string>& lens,
                           CoreSession& session) {
  const CalibrationEntry& entry = calibration.entry;
  std::optional<std::size_t> named;
  if (lens) named = lensNamed(*lens, calibration.lenses);
  session.core().setCalibrationData(entry.text, entry.version, entry.serial_number);
  if (named) {
    currentLensNumber = static_cast<int32_t>(*named);
  } else if (session.core().CheckCameraSffc() < 0) {
    session.requireLink();
    throw CommandFailure(ExitStatus::Failure,
                         "The lens of " + nameOf(session.camera()) +
                             " is not known, because its core holds the tables of no lens of the calibration. Name the "
                             "lens with --lens NAME; \"keocam lens list\" tells the names, and \"keocam lens set\" "
                             "writes a lens' tables.");
  }
  return shownName(calibration.lenses.at(static_cast<std::size_t>(currentLensNumber)).name);
}

}  // namespace keocam::cli
