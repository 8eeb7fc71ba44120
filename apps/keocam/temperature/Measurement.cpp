#include "apps/keocam/temperature/Measurement.h"

#include "measurement/Percentiles.h"

namespace keocam::cli {
namespace {

// A region of one temperature gets a bin of a degree around it.
HistogramBins binsFor(const Statistics& statistics, int count) {
  constexpr double kHalfWidth = 0.5;
  if (statistics.minimum < statistics.maximum) return {statistics.minimum, statistics.maximum, count};
  return {statistics.minimum - kHalfWidth, statistics.minimum + kHalfWidth, count};
}

}  // namespace

Measurement measureRegions(const TemperatureFrame& frame, const std::vector<PlacedRegion>& regions,
                           const RawLimits& limits, const MeasureDetails& details) {
  Measurement result;
  result.time_ns = frame.time_ns;
  const TemperatureImage<float> image = frame.image();
  for (const PlacedRegion& region : regions) {
    RegionResult measured{
        region.named, measure(image, region.spans), limitedPixels(frame.raw, region.spans, limits), {}, {}};
    if (!details.percents.empty()) measured.percentiles = percentiles(image, region.spans, details.percents);
    if (details.histogram_bins && measured.statistics.count > 0) {
      measured.histogram = histogram(image, region.spans, binsFor(measured.statistics, *details.histogram_bins));
    }
    result.regions.push_back(std::move(measured));
  }
  return result;
}

}  // namespace keocam::cli
