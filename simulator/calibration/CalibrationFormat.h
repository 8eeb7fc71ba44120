// What the writer and the readers of calibration texts agree on.
#pragma once

#include <cstddef>

namespace simulator {

/// Of a lens' name; a shorter one is filled with blanks.
constexpr std::size_t kLensNameBytes = 5;
constexpr unsigned kFirstVersionWithTables = 2;
/// Earlier versions have no points of the high range.
constexpr unsigned kFirstVersionWith1500 = 3;
/// Earlier versions correct for the core's temperature with one line, later ones with two that cross.
constexpr unsigned kFirstVersionWithTwoLines = 3;

}  // namespace simulator
