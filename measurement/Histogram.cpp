#include "measurement/Histogram.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

#include "measurement/PixelRuns.h"

namespace keocam {
namespace {

using Limits = std::numeric_limits<double>;

constexpr int kMostBins = 1'000'000;
// So wide at least, a value's quotient is never more than a bin away from its bin.
constexpr double kNarrowestBin_ulps = 8;

void check(const HistogramBins& bins) {
  if (!std::isfinite(bins.lower) || !std::isfinite(bins.upper) || !std::isfinite(bins.upper - bins.lower)) {
    throw std::invalid_argument("A histogram's bounds and their distance must be finite.");
  }
  if (bins.lower >= bins.upper) throw std::invalid_argument("A histogram's lower bound must be below its upper.");
  if (bins.count < 1 || bins.count > kMostBins) {
    throw std::invalid_argument("A histogram has 1 to " + std::to_string(kMostBins) + " bins, not " +
                                std::to_string(bins.count) + ".");
  }
  const double largest = std::max(std::abs(bins.lower), std::abs(bins.upper));
  const double narrowest = std::max(largest * Limits::epsilon() * kNarrowestBin_ulps, Limits::min());
  if ((bins.upper - bins.lower) / bins.count < narrowest) {
    throw std::invalid_argument("A histogram's bins are too narrow: make them fewer, or the bounds wider apart.");
  }
}

/// The bin of a value within the bounds. Rounding may put the quotient into a neighbour; the edges decide.
int binOf(double value, const HistogramBins& bins) {
  const double quotient = (value - bins.lower) / (bins.upper - bins.lower) * bins.count;
  int bin = std::min(static_cast<int>(quotient), bins.count - 1);
  while (bin > 0 && value < bins.edge(bin)) --bin;
  while (bin < bins.count - 1 && value >= bins.edge(bin + 1)) ++bin;
  return bin;
}

void count(double value, Histogram& histogram) {
  if (std::isnan(value)) {
    ++histogram.nan_count;
  } else if (value < histogram.bins.lower) {
    ++histogram.below;
  } else if (value > histogram.bins.upper) {
    ++histogram.above;
  } else {
    ++histogram.counts[static_cast<std::size_t>(binOf(value, histogram.bins))];
  }
}

}  // namespace

template <typename Value>
Histogram histogram(const TemperatureImage<Value>& image, const RegionSpans& region, const HistogramBins& bins) {
  check(bins);
  Histogram result{bins, std::vector<int64_t>(static_cast<std::size_t>(bins.count))};
  forEachRun(image, region, [&](const Value* values, std::size_t size, Pixel /*first*/) {
    for (std::size_t i = 0; i < size; ++i) count(double{values[i]}, result);
  });
  return result;
}

template Histogram histogram(const TemperatureImage<float>&, const RegionSpans&, const HistogramBins&);
template Histogram histogram(const TemperatureImage<double>&, const RegionSpans&, const HistogramBins&);

}  // namespace keocam
