// Which temperatures a picture's palette covers.
#pragma once

#include <cstddef>
#include <vector>

#include "apps/keocam/picture/ColourScale.h"
#include "measurement/TemperatureImage.h"

namespace keocam::cli {

/// In any unit.
struct TemperatureSpan {
  double low;
  double high;  ///< always above `low`
};

/// From the 1st to the 99th percentile, so that a few dead or glowing pixels do not decide; a narrow one is widened to
/// half a degree. 0 to 1 for a picture without temperatures.
TemperatureSpan temperatureSpanOf(const TemperatureImage<float>& image);

/// Where a temperature lies in the span, as one of `steps` steps: 0 at its low end and below, `steps` - 1 at its high
/// end and above. Not for NaN.
std::size_t stepOf(double temperature, const TemperatureSpan& span, std::size_t steps);

/// Round numbers within the span, ascending, evenly spaced by 1, 2 or 5 times a power of ten, with as many decimals as
/// that takes: as many as there can be up to `most`, which is at least 2.
std::vector<ScaleTick> ticksOf(const TemperatureSpan& span, std::size_t most);

}  // namespace keocam::cli
