// What a region's temperatures are, in a few numbers.
#pragma once

#include <cstdint>
#include <limits>

#include "measurement/Region.h"
#include "measurement/RegionSpans.h"
#include "measurement/TemperatureImage.h"

namespace keocam {

/// Pixels that are not a number or infinite are counted, and take no part in anything else. Without a finite one, the
/// numbers are NaN and the places (-1, -1).
struct Statistics {
  int64_t count = 0;           ///< finite values
  int64_t nan_count = 0;       ///< those that are not a number
  int64_t infinite_count = 0;  ///< those that are infinite
  double minimum = std::numeric_limits<double>::quiet_NaN();
  double maximum = std::numeric_limits<double>::quiet_NaN();
  double mean = std::numeric_limits<double>::quiet_NaN();
  /// Of these pixels as the whole population: the root of the mean square of their distances from the mean.
  double standard_deviation = std::numeric_limits<double>::quiet_NaN();
  Pixel minimum_at = {-1, -1};  ///< the first in row order, from the top left
  Pixel maximum_at = {-1, -1};  ///< likewise
};

/// Measures a region's part of an image, of floats or doubles, in one pass. Sums are of doubles, and squares are of
/// distances from a mean, so a mean of 300 K with a deviation of 0.001 K loses nothing. The result has the same bits on
/// every processor. Throws std::invalid_argument if `region` was laid out for an image of another size.
template <typename Value>
Statistics measure(const TemperatureImage<Value>& image, const RegionSpans& region);

/// The same for a region that is used once. Throws std::invalid_argument as RegionSpans does.
template <typename Value>
Statistics measure(const TemperatureImage<Value>& image, const Region& region) {
  return measure(image, RegionSpans(region, image.width(), image.height()));
}

extern template Statistics measure(const TemperatureImage<float>&, const RegionSpans&);
extern template Statistics measure(const TemperatureImage<double>&, const RegionSpans&);

}  // namespace keocam
