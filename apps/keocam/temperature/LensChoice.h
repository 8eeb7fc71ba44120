// The lens whose calibration corrects temperatures.
#pragma once

#include <optional>
#include <string>

#include "apps/keocam/core/CoreSession.h"
#include "apps/keocam/lens/CameraCalibration.h"

namespace keocam::cli {

/// The camera's calibration; nothing without a folder. Throws CommandFailure as calibrationOf().
std::optional<CameraCalibration> calibrationIn(const std::string& folder, const DeviceDetails& camera);

/// Puts the calibration in force and selects the lens of this name, or the one whose tables the core holds; the core
/// stays as it is. Returns the lens' name, fit for a terminal. Throws CommandFailure (Failure) if there is no such
/// lens, or if the core holds none's.
std::string putLensInForce(const CameraCalibration& calibration, const std::optional<std::string>& lens,
                           CoreSession& session);

}  // namespace keocam::cli
