// A camera's entry in a calibration folder: written, and looked up for a lens' tables and points.
#pragma once

#include <array>
#include <string>

#include "simulator/Bytes.h"
#include "simulator/calibration/CalibrationOptions.h"
#include "simulator/calibration/LensData.h"

namespace simulator {

/// What has been written.
struct CalibrationEntry {
  std::string path;
  std::size_t text_bytes = 0;
};

/// Makes <folder>/<serial>/ with its text and, last, its manifest; the folder too, where there is none. An entry that
/// exists is left alone. Throws std::invalid_argument as checkCalibration() or for a serial number that cannot name an
/// entry, and std::runtime_error with a text that names what exists already or cannot be written.
CalibrationEntry writeCalibrationEntry(const std::string& folder, const std::string& serial,
                                       const CalibrationOptions& options);

/// The tables for the low and the middle range of the first lens of this name; a name may be short of its blanks.
/// Throws std::runtime_error with a text that names what is missing or does not serve, and the lenses that are there.
std::array<Bytes, 2> readLensTables(const std::string& folder, const std::string& serial, const std::string& lens);

/// What a lens' correction is made of.
struct LensPoints {
  CalibrationPoints points{};  ///< those of the high range are 0 where the lens has none
  unsigned version = 0;        ///< of the text, by the manifest
  bool with_1500 = false;      ///< the lens has the high range
};

/// Of the same lens as readLensTables(), and throws as it does; also for a manifest that is missing or has no version.
LensPoints readLensPoints(const std::string& folder, const std::string& serial, const std::string& lens);

}  // namespace simulator
