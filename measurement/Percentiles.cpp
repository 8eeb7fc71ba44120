#include "measurement/Percentiles.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numeric>
#include <stdexcept>

#include "measurement/PixelRuns.h"

namespace keocam {
namespace {

constexpr double kWhole = 100;

void check(const std::vector<double>& percents) {
  const auto isPercentage = [](double percent) { return percent >= 0 && percent <= kWhole; };
  if (!std::all_of(percents.begin(), percents.end(), isPercentage)) {
    throw std::invalid_argument("A percentage is 0 to 100.");
  }
}

template <typename Value>
std::vector<Value> finiteValues(const TemperatureImage<Value>& image, const RegionSpans& region) {
  std::vector<Value> finite;
  finite.reserve(static_cast<std::size_t>(region.pixelCount()));
  forEachRun(image, region, [&](const Value* values, std::size_t count, Pixel /*first*/) {
    std::copy_if(values, values + count, std::back_inserter(finite), [](Value value) { return std::isfinite(value); });
  });
  return finite;
}

/// Of at least one value. Those before `sorted_until` are no greater than those behind it; on return the same holds of
/// the rank below the percentile's, to which `sorted_until` has moved.
template <typename Value>
double percentileOf(std::vector<Value>& values, double percent, std::size_t& sorted_until) {
  const double rank = static_cast<double>(values.size() - 1) * percent / kWhole;
  const double lower_rank = std::floor(rank);
  const auto lower = values.begin() + static_cast<std::ptrdiff_t>(lower_rank);
  std::nth_element(values.begin() + static_cast<std::ptrdiff_t>(sorted_until), lower, values.end());
  sorted_until = static_cast<std::size_t>(lower_rank);
  const double fraction = rank - lower_rank;
  if (fraction == 0) return double{*lower};
  const double upper = double{*std::min_element(lower + 1, values.end())};
  return double{*lower} + fraction * (upper - double{*lower});
}

}  // namespace

template <typename Value>
std::vector<double> percentiles(const TemperatureImage<Value>& image, const RegionSpans& region,
                                const std::vector<double>& percents) {
  check(percents);
  std::vector<double> results(percents.size(), std::numeric_limits<double>::quiet_NaN());
  std::vector<Value> values = finiteValues(image, region);
  if (values.empty()) return results;

  // In ascending order each search is left with the values behind the last one's.
  std::vector<std::size_t> order(percents.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return percents[a] < percents[b]; });
  std::size_t sorted_until = 0;
  for (const std::size_t i : order) results[i] = percentileOf(values, percents[i], sorted_until);
  return results;
}

template std::vector<double> percentiles(const TemperatureImage<float>&, const RegionSpans&,
                                         const std::vector<double>&);
template std::vector<double> percentiles(const TemperatureImage<double>&, const RegionSpans&,
                                         const std::vector<double>&);

}  // namespace keocam
