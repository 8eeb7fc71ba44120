// The regions of one frame, measured.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/keocam/temperature/PixelLimits.h"
#include "apps/keocam/temperature/RegionArguments.h"
#include "apps/keocam/temperature/TemperatureFrame.h"
#include "measurement/Histogram.h"
#include "measurement/Statistics.h"

namespace keocam::cli {

/// What is asked beyond the usual numbers.
struct MeasureDetails {
  std::vector<double> percents;       ///< 0 to 100
  std::optional<int> histogram_bins;  ///< from a region's minimum to its maximum
};

/// Temperatures in degrees Celsius.
struct RegionResult {
  NamedRegion named;
  Statistics statistics;
  LimitedPixels limited;
  std::vector<double> percentiles;     ///< of MeasureDetails::percents, in their order
  std::optional<Histogram> histogram;  ///< without a finite temperature there is none
};

struct Measurement {
  uint64_t time_ns = 0;  ///< of the frame, since 1970
  std::vector<RegionResult> regions;
  std::optional<double> frames_per_second;  ///< since the measurement before; where there was none, nothing
};

Measurement measureRegions(const TemperatureFrame& frame, const std::vector<PlacedRegion>& regions,
                           const RawLimits& limits, const MeasureDetails& details);

}  // namespace keocam::cli
