// A calibration text in a file, and what the manifest beside it says of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/keocam/calibration/CalibrationFindings.h"
#include "calibration/CalibrationManifest.h"

namespace keocam::cli {

struct CalibrationFile {
  std::string text;
  std::optional<std::string> manifest_text;  ///< of manifest.txt in the same folder
  std::string folder_name;                   ///< the last part of the folder's path
};

/// Throws CommandFailure, with the path and the reason, for a text that cannot be read or has more than 256 MiB.
CalibrationFile readCalibrationFile(const std::string& path);

/// What is given instead of the manifest's version and the folder's name.
struct CalibrationOverride {
  std::optional<std::string> version;
  std::optional<std::string> serial_number;
};

/// How a file's text is to be read.
struct CalibrationReading {
  std::string version;  ///< as given, or the manifest's, or else as the text looks
  bool version_guessed = false;
  std::optional<std::string> serial_number;  ///< as given, or the name of a folder that has a manifest
  std::optional<CalibrationManifest> manifest;
  CalibrationFindings findings;  ///< on the manifest
};
CalibrationReading readingOf(const CalibrationFile& file, const CalibrationOverride& given);

}  // namespace keocam::cli
