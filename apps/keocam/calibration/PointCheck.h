// Calibration points: as many as there must be, all of them numbers, and slopes that can be computed from them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "apps/keocam/calibration/CalibrationFindings.h"

namespace keocam::cli {

/// Points as they stand in a text.
struct PointText {
  std::string name;         ///< of their key, such as "Data:"
  std::size_t offset;       ///< in the whole text
  std::string_view digits;  ///< with whatever follows them
  std::size_t expected;     ///< how many points there must be
};

void checkPoints(const PointText& points, CalibrationFindings& findings);

/// A row's slope is made from four of its points. `points` are those of the ranges 0 and 1.
void checkSlopes(const PointText& points, CalibrationFindings& findings);

}  // namespace keocam::cli
