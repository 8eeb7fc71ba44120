// Which temperature a given share of a region's pixels does not exceed.
#pragma once

#include <vector>

#include "measurement/Region.h"
#include "measurement/RegionSpans.h"
#include "measurement/TemperatureImage.h"

namespace keocam {

/// The percentiles of a region's pixels in an image of floats or doubles, in the order of `percents`, each 0 to 100: 0
/// is the minimum, 50 the median, 100 the maximum. Between the two closest ranks it is interpolated linearly, which is
/// type 7 of Hyndman and Fan (1996). Values that are not finite are left out; without a finite one, every percentile is
/// NaN. Throws std::invalid_argument for a percentage out of range or not a number, and if `region` was laid out for an
/// image of another size.
template <typename Value>
std::vector<double> percentiles(const TemperatureImage<Value>& image, const RegionSpans& region,
                                const std::vector<double>& percents);

/// The same for a region that is used once. Throws std::invalid_argument also as RegionSpans does.
template <typename Value>
std::vector<double> percentiles(const TemperatureImage<Value>& image, const Region& region,
                                const std::vector<double>& percents) {
  return percentiles(image, RegionSpans(region, image.width(), image.height()), percents);
}

extern template std::vector<double> percentiles(const TemperatureImage<float>&, const RegionSpans&,
                                                const std::vector<double>&);
extern template std::vector<double> percentiles(const TemperatureImage<double>&, const RegionSpans&,
                                                const std::vector<double>&);

}  // namespace keocam
