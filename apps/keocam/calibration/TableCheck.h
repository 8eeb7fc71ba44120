// A table of a calibration text: closed, whole, of digits, and of a size that a core has a place for.
#pragma once

#include <cstddef>
#include <optional>

#include "apps/keocam/calibration/CalibrationFindings.h"
#include "apps/keocam/calibration/CalibrationKeys.h"

namespace keocam::cli {

/// Checks one table by itself, and returns its bytes.
std::size_t checkTable(const KeyedValue& table, CalibrationFindings& findings);

/// Whether a table of `low`'s size fits a sensor, and whether the others have the same size. Absent ones are not
/// looked at.
struct TableSizes {
  std::optional<std::size_t> low_bytes;
  std::optional<std::size_t> middle_bytes;
  std::optional<std::size_t> high_bytes;
};
void checkTableSizes(const TableSizes& sizes, std::size_t offset, CalibrationFindings& findings);

/// The sensor that a table of this size is for, such as "640x512"; empty if there is none.
const char* sensorOfTable(std::size_t bytes);

}  // namespace keocam::cli
