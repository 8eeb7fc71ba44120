// How a region's temperatures are distributed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "measurement/Region.h"
#include "measurement/RegionSpans.h"
#include "measurement/TemperatureImage.h"

namespace keocam {

/// Bins of equal width between two bounds. A bin has its lower edge and not its upper, but for the last, which has
/// both.
struct HistogramBins {
  double lower;
  double upper;
  int count;  ///< 1 to 1 000 000

  /// The lower edge of bin `i`; edge(count) is the upper bound.
  double edge(int i) const { return i == count ? upper : lower + (upper - lower) * (static_cast<double>(i) / count); }
};

struct Histogram {
  HistogramBins bins;
  std::vector<int64_t> counts;  ///< pixels in each bin
  int64_t below = 0;            ///< pixels below the lower bound, also infinitely
  int64_t above = 0;            ///< pixels above the upper bound, also infinitely
  int64_t nan_count = 0;        ///< pixels that are not a number
};

/// Counts a region's pixels in an image of floats or doubles; each is counted in one place. Throws
/// std::invalid_argument if the lower bound is not below the upper, either or their distance is not finite, for a
/// number of bins out of range or so large that doubles cannot tell their edges apart, and if `region` was laid out for
/// an image of another size.
template <typename Value>
Histogram histogram(const TemperatureImage<Value>& image, const RegionSpans& region, const HistogramBins& bins);

/// The same for a region that is used once. Throws std::invalid_argument also as RegionSpans does.
template <typename Value>
Histogram histogram(const TemperatureImage<Value>& image, const Region& region, const HistogramBins& bins) {
  return histogram(image, RegionSpans(region, image.width(), image.height()), bins);
}

extern template Histogram histogram(const TemperatureImage<float>&, const RegionSpans&, const HistogramBins&);
extern template Histogram histogram(const TemperatureImage<double>&, const RegionSpans&, const HistogramBins&);

}  // namespace keocam
