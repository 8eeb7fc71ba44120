// Everything that is wrong or doubtful with a calibration text. Stricter than the library, which reads what it can.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "apps/keocam/calibration/CalibrationFindings.h"

namespace keocam::cli {

struct CalibrationToCheck {
  std::string_view text;
  std::string version;
  std::optional<std::string> serial_number;  ///< without one nothing is said of it
};

/// Findings on version and serial number first, then those of each lens, and at last where the library would stop
/// reading. A version that means none is checked as the text looks. 31 MB take some 50 ms.
CalibrationFindings checkCalibration(const CalibrationToCheck& calibration);

/// The version that a text looks like, for one of which it is not known.
std::string likelyVersion(std::string_view text);

}  // namespace keocam::cli
