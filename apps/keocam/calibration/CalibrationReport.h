// A calibration text and the findings on it, as text and as JSON.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "apps/keocam/calibration/CalibrationFile.h"
#include "apps/keocam/calibration/CalibrationFindings.h"
#include "apps/keocam/calibration/LensSummary.h"

namespace keocam::cli {

struct CalibrationOverview {
  std::string path;
  std::size_t size_bytes = 0;
  uint32_t crc32 = 0;  ///< of the whole file
  CalibrationReading reading;
  std::vector<LensSummary> lenses;
};

/// The file's figures, a line each, and a table of its lenses, within `width` columns.
std::string overviewText(const CalibrationOverview& overview, std::size_t width);
std::string overviewJson(const CalibrationOverview& overview);

/// A line for each finding, the wrong ones and the doubtful ones as they come; one line if there is none.
std::string findingsText(const std::string& path, const std::vector<CalibrationFinding>& findings);
std::string findingsJson(const std::string& path, const std::vector<CalibrationFinding>& findings);

}  // namespace keocam::cli
