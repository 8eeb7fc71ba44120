// Which raw counts a picture's palette covers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace keocam::cli {

struct RawSpan {
  uint16_t low_counts;
  uint16_t high_counts;  ///< always above `low_counts`
};

/// The smallest value that at least `percent` of the values do not exceed. `values` must not be empty.
uint16_t percentileOf(const std::vector<uint16_t>& values, double percent);

/// From the 1st to the 99th percentile, so that a few dead or glowing pixels do not decide. A flat frame gets a span of
/// one count to either side. `values` must not be empty.
RawSpan spanOf(const std::vector<uint16_t>& values);

/// Where `counts` lies in the span, as one of `steps` steps: 0 at its low end and below, `steps` - 1 at its high end
/// and above.
std::size_t stepOf(uint16_t counts, const RawSpan& span, std::size_t steps);

/// Round numbers within the span, ascending, evenly spaced by 1, 2 or 5 times a power of ten: as many as there can be
/// up to `most`, which is at least 2.
std::vector<uint16_t> ticksOf(const RawSpan& span, std::size_t most);

}  // namespace keocam::cli
