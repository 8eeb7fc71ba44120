// Pixels whose temperature is beyond what the model reports: it gives them its lowest or highest instead.
#pragma once

#include <cstdint>

#include "apps/keocam/frames/RawFrame.h"
#include "measurement/RegionSpans.h"
#include "radiometry/SensorModel.h"

namespace keocam::cli {

/// Raw values from `first` to `last`; none if the first is above the last.
struct RawStretch {
  int first = 1;
  int last = 0;
};

/// The raw values that are given a limit's temperature. None for temperatures that the core computes.
struct RawLimits {
  RawStretch low;
  RawStretch high;
};
RawLimits rawLimitsOf(const SensorModel& model);

struct LimitedPixels {
  int64_t low = 0;
  int64_t high = 0;
};

/// The region must have been laid out for the image's size.
LimitedPixels limitedPixels(const RawImage& image, const RegionSpans& region, const RawLimits& limits);

}  // namespace keocam::cli
