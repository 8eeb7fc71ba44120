// Where a camera's calibration comes from: a folder with one entry per serial number.
#pragma once

#include <string>

namespace keocam {

/// What the source holds for one camera.
struct CalibrationEntry {
  std::string text;            ///< the calibration text; empty if the source holds none
  std::string version = "00";  ///< the calibration version
  std::string serial_number;   ///< the serial number asked for, unchanged
};

/// Reads entries of the layout that docs/calibration-source.md describes. Holds no file open between calls. Several
/// threads may look up in one object at once.
class CalibrationSource {
 public:
  /// `location` is the folder's path; it need not exist yet.
  explicit CalibrationSource(std::string location);

  /// The entry for `serial_number`, a text that may come from an untrusted device. A serial number that cannot name an
  /// entry is never used as a path. Where the entry is missing, unreadable or incomplete, one line on standard error
  /// names it and says why, and the result has an empty text and version "00". Throws only std::bad_alloc.
  CalibrationEntry lookUp(const std::string& serial_number) const;

 private:
  std::string location_;
};

/// Whether `serial_number` can name an entry: 1 to 64 letters, digits, hyphens and underscores. Nothing else can reach
/// outside the folder, hide in a terminal, or differ between file systems.
bool canNameCalibrationEntry(const std::string& serial_number);

}  // namespace keocam
