// The calibration of one lens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// Bytes that a table of shutterless flat-field correction (SFFC) may have: four for each pixel of the largest sensor.
constexpr std::size_t kSffcCapacity_bytes = std::size_t{640} * 512 * 4;

/// One lens of one camera. About 3.94 MB: keep it on the heap, and pass it by reference.
///
/// Ranges are those of CameraSerialSettings::RangeModes, rows the core's temperature in whole degrees Celsius.
struct CalibrationStruct {
  uint8_t slopesValid = 0;     ///< 1: `slopes` was computed
  uint8_t has1500Range = 0;    ///< 1: the lens measures in HighRange, +400 to +1500 degrees Celsius
  uint32_t bb = 0;             ///< the record's "BB:" digit
  std::string cdate;           ///< date of the calibration, as written in its text
  std::string lens;            ///< the lens' name
  double data[3][60][5] = {};  ///< calibration points: range, row, point
  double slopes[2][60] = {};   ///< for LowRange and MiddleRange: range, row
  int32_t sffcTableSize = 0;   ///< bytes in `sffcLowRange`; 0 for a lens without tables
  uint8_t sffcLowRange[kSffcCapacity_bytes] = {};
  uint8_t sffcHighRange[kSffcCapacity_bytes] = {};  ///< of MiddleRange
  uint8_t sffc1500Range[kSffcCapacity_bytes] = {};  ///< of HighRange; never sent to the core
};
