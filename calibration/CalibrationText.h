// A camera's calibration text, taken apart. Nothing here touches the calibration in force.
//
// A text is a run of records, one per lens. Keys are found by searching, and what is missing or out of place is
// forgiven in the ways that the format's own reader always has; docs/calibration-text.md has the grammar.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "calibration/Calibration.h"

namespace keocam {

/// Where a record's values stand in its text, which must outlive it.
struct CalibrationRecordText {
  unsigned int bb = 0;
  bool has_1500_range = false;
  std::string_view date;
  std::string_view lens;
  std::string_view points;       ///< hexadecimal floats of ranges 0 and 1
  std::string_view points_1500;  ///< of range 2
  std::string_view sffc_low;     ///< hexadecimal bytes
  std::string_view sffc_high;
  std::string_view sffc_1500;
};

/// What a text says, in order, and why reading it ended.
struct CalibrationLayout {
  int version = 0;  ///< the grammar as it was given: 0 to 3, 3 for all above, or a negative one, which has no records
  std::vector<CalibrationRecordText> records;
  CameraSpeed speed;           ///< as the last record leaves it
  std::exception_ptr failure;  ///< what the reader threw after these records, or null
};

/// Reads the grammar's number from a version string such as "03": base 10, as std::stoul does, whose exceptions pass;
/// 3 for all above, -1 for a number that means none.
int calibrationGrammar(const std::string& version);

/// Takes a text apart. Costs a pass over the text for each key at most, and no memory but the result. `speed` is what
/// CamSpeed was before. The failures are std::invalid_argument (the BB digit, the serial number), std::out_of_range (a
/// value beyond the end, a serial number of fewer than 4 characters) and std::length_error (a table larger than its
/// place).
CalibrationLayout readCalibrationLayout(std::string_view text, int grammar, const std::string& serial_number,
                                        CameraSpeed speed);

/// Fills a new record with what its text says.
void fillCalibration(const CalibrationRecordText& text, int grammar, CalibrationStruct& record);

}  // namespace keocam
