#include "apps/keocam/picture/RawSpan.h"

#include <algorithm>
#include <cmath>

namespace keocam::cli {
namespace {

constexpr double kLowPercentile = 1.0;
constexpr double kHighPercentile = 99.0;

using Histogram = std::vector<uint64_t>;

Histogram histogramOf(const std::vector<uint16_t>& values) {
  Histogram histogram(std::size_t{UINT16_MAX} + 1);
  for (const uint16_t value : values) ++histogram[value];
  return histogram;
}

uint16_t percentile(const Histogram& histogram, std::size_t values, double percent) {
  const double rank = std::ceil(percent / 100.0 * static_cast<double>(values));
  const auto needed = std::max<uint64_t>(1, static_cast<uint64_t>(rank));
  uint64_t seen = 0;
  for (std::size_t value = 0; value < histogram.size(); ++value) {
    seen += histogram[value];
    if (seen >= needed) return static_cast<uint16_t>(value);
  }
  return UINT16_MAX;
}

// Round steps in ascending order: 1, 2, 5, 10, 20, 50, ...
unsigned int nextStep(unsigned int step) {
  unsigned int leading = step;
  while (leading >= 10) leading /= 10;
  return leading == 2 ? step / 2 * 5 : step * 2;
}

unsigned int firstTick(const RawSpan& span, unsigned int step) { return (span.low_counts + step - 1) / step * step; }

std::size_t tickCount(const RawSpan& span, unsigned int step) {
  const unsigned int first = firstTick(span, step);
  return first > span.high_counts ? 0 : (span.high_counts - first) / step + 1;
}

}  // namespace

uint16_t percentileOf(const std::vector<uint16_t>& values, double percent) {
  return percentile(histogramOf(values), values.size(), percent);
}

RawSpan spanOf(const std::vector<uint16_t>& values) {
  const Histogram histogram = histogramOf(values);
  const uint16_t low = percentile(histogram, values.size(), kLowPercentile);
  const uint16_t high = percentile(histogram, values.size(), kHighPercentile);
  if (low < high) return {low, high};
  return {static_cast<uint16_t>(low == 0 ? 0 : low - 1), static_cast<uint16_t>(high == UINT16_MAX ? high : high + 1)};
}

std::size_t stepOf(uint16_t counts, const RawSpan& span, std::size_t steps) {
  const std::size_t clamped = std::clamp(counts, span.low_counts, span.high_counts);
  const std::size_t width = static_cast<std::size_t>(span.high_counts) - span.low_counts;
  return ((clamped - span.low_counts) * (steps - 1) + width / 2) / width;
}

std::vector<uint16_t> ticksOf(const RawSpan& span, std::size_t most) {
  unsigned int step = 1;
  while (tickCount(span, step) > most) step = nextStep(step);
  std::vector<uint16_t> ticks;
  for (unsigned int tick = firstTick(span, step); tick <= span.high_counts; tick += step) {
    ticks.push_back(static_cast<uint16_t>(tick));
  }
  return ticks;
}

}  // namespace keocam::cli
