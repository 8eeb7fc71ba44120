#include "measurement/Statistics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <vector>

#include "measurement/PixelRuns.h"

namespace keocam {
namespace {

/// What can be added up of some values. Their number is not among it.
struct Moments {
  double minimum;
  double maximum;
  double mean;
  double squares;  ///< the sum of the squares of their distances from the mean
};

/// Sums run in this many lanes of their own, which a compiler may put side by side into registers without changing any
/// result.
constexpr std::size_t kLanes = 8;
using Sums = std::array<double, kLanes>;

template <typename Add>
double sumInLanes(std::size_t count, const Add& add) {
  Sums sums{};
  std::size_t i = 0;
  for (; i + kLanes <= count; i += kLanes) {
    for (std::size_t lane = 0; lane < kLanes; ++lane) sums[lane] += add(i + lane);
  }
  for (; i < count; ++i) sums[i % kLanes] += add(i);
  return std::accumulate(sums.begin(), sums.end(), 0.0);
}

/// The least value in the order `before`, which NaN has no place in.
template <typename Value, typename Before>
Value firstInLanes(const Value* values, std::size_t count, const Before& before) {
  std::array<Value, kLanes> found;
  found.fill(values[0]);
  std::size_t i = 0;
  for (; i + kLanes <= count; i += kLanes) {
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      found[lane] = before(values[i + lane], found[lane]) ? values[i + lane] : found[lane];
    }
  }
  for (; i < count; ++i) found[0] = before(values[i], found[0]) ? values[i] : found[0];
  return *std::min_element(found.begin(), found.end(), before);
}

/// Of at least one value. A mean that is not finite says that a value was not.
template <typename Value>
Moments momentsOf(const Value* values, std::size_t count) {
  Moments moments{};
  moments.mean = sumInLanes(count, [&](std::size_t i) { return double{values[i]}; }) / static_cast<double>(count);
  moments.squares = sumInLanes(count, [&](std::size_t i) {
    const double distance = double{values[i]} - moments.mean;
    return distance * distance;
  });
  moments.minimum = firstInLanes(values, count, [](Value a, Value b) { return a < b; });
  moments.maximum = firstInLanes(values, count, [](Value a, Value b) { return a > b; });
  return moments;
}

template <typename Value>
class Measurement {
 public:
  void add(const Value* values, std::size_t count, Pixel first) {
    const Moments moments = momentsOf(values, count);
    if (std::isfinite(moments.mean)) {
      merge(moments, count, values, first);
    } else {
      addFinite(values, count, first);
    }
  }

  Statistics result() const {
    Statistics statistics = statistics_;
    if (statistics.count > 0) {
      statistics.standard_deviation = std::sqrt(squares_ / static_cast<double>(statistics.count));
    }
    return statistics;
  }

 private:
  void addFinite(const Value* values, std::size_t count, Pixel first) {
    finite_.clear();
    for (std::size_t i = 0; i < count; ++i) {
      if (std::isfinite(values[i])) {
        finite_.push_back(values[i]);
      } else {
        ++(std::isnan(values[i]) ? statistics_.nan_count : statistics_.infinite_count);
      }
    }
    if (!finite_.empty()) merge(momentsOf(finite_.data(), finite_.size()), finite_.size(), values, first);
  }

  /// Two means and sums of squares become one as Chan, Golub and LeVeque showed.
  void merge(const Moments& moments, std::size_t count, const Value* values, Pixel first) {
    const bool is_first = statistics_.count == 0;
    if (is_first || moments.minimum < statistics_.minimum) {
      statistics_.minimum = moments.minimum;
      statistics_.minimum_at = placeOf(moments.minimum, values, first);
    }
    if (is_first || moments.maximum > statistics_.maximum) {
      statistics_.maximum = moments.maximum;
      statistics_.maximum_at = placeOf(moments.maximum, values, first);
    }
    const auto before = static_cast<double>(statistics_.count);
    statistics_.count += static_cast<int64_t>(count);
    if (is_first) {
      statistics_.mean = moments.mean;
      squares_ = moments.squares;
      return;
    }
    const double share = static_cast<double>(count) / static_cast<double>(statistics_.count);
    const double distance = moments.mean - statistics_.mean;
    statistics_.mean += distance * share;
    squares_ += moments.squares + distance * distance * before * share;
  }

  /// Where the run has a value that it is known to have.
  static Pixel placeOf(double value, const Value* values, Pixel first) {
    int x = first.x;
    for (; double{*values} != value; ++values) ++x;
    return {x, first.y};
  }

  Statistics statistics_;
  double squares_ = 0;
  std::vector<Value> finite_;  // kept from run to run for its memory
};

}  // namespace

template <typename Value>
Statistics measure(const TemperatureImage<Value>& image, const RegionSpans& region) {
  Measurement<Value> measurement;
  forEachRun(image, region,
             [&](const Value* values, std::size_t count, Pixel first) { measurement.add(values, count, first); });
  return measurement.result();
}

template Statistics measure(const TemperatureImage<float>&, const RegionSpans&);
template Statistics measure(const TemperatureImage<double>&, const RegionSpans&);

}  // namespace keocam
