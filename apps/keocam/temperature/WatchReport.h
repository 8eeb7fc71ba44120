// What watching tells beyond the regions: how fast frames come, and what they are measured with.
#pragma once

#include <cstddef>
#include <string>

#include "apps/keocam/temperature/Conditions.h"
#include "apps/keocam/temperature/DisplayUnit.h"
#include "apps/keocam/temperature/Measurement.h"

namespace keocam::cli {

/// A heading and a line, within `width` columns, to stand above the table of regions.
std::string watchTable(const Conditions& conditions, const Measurement& measurement, const DisplayUnit& unit,
                       std::size_t width);

/// The same as one line, with the time.
std::string watchLine(const Conditions& conditions, const Measurement& measurement, const DisplayUnit& unit);

}  // namespace keocam::cli
