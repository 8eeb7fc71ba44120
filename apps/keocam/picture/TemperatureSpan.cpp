#include "apps/keocam/picture/TemperatureSpan.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "measurement/Percentiles.h"

namespace keocam::cli {
namespace {

// 1, 2 or 5 times a power of ten, as its exponent and its place among the three.
struct RoundStep {
  int exponent;
  std::size_t leading;

  double value() const {
    constexpr double kLeading[] = {1.0, 2.0, 5.0};
    return kLeading[leading] * std::pow(10.0, exponent);
  }
  RoundStep next() const { return leading == 2 ? RoundStep{exponent + 1, 0} : RoundStep{exponent, leading + 1}; }
};

// Number of the first multiple in the span, and of the last.
double firstOf(const TemperatureSpan& span, const RoundStep& step) { return std::ceil(span.low / step.value()); }
double lastOf(const TemperatureSpan& span, const RoundStep& step) { return std::floor(span.high / step.value()); }

std::string labelOf(double temperature, const RoundStep& step) {
  char text[64];
  // Zero may come out as -0.
  std::snprintf(text, sizeof text, "%.*f", std::max(0, -step.exponent), temperature + 0.0);
  return text;
}

}  // namespace

TemperatureSpan temperatureSpanOf(const TemperatureImage<float>& image) {
  constexpr double kLeastWidth = 0.5;
  const std::vector<double> ends =
      percentiles(image, Region(Box{0, 0, image.width(), image.height()}), std::vector<double>{1.0, 99.0});
  if (std::isnan(ends[0])) return {0.0, 1.0};
  const double missing = std::max(0.0, kLeastWidth - (ends[1] - ends[0]));
  return {ends[0] - missing / 2.0, ends[1] + missing / 2.0};
}

std::size_t stepOf(double temperature, const TemperatureSpan& span, std::size_t steps) {
  const double part = std::clamp((temperature - span.low) / (span.high - span.low), 0.0, 1.0);
  return static_cast<std::size_t>(std::lround(part * static_cast<double>(steps - 1)));
}

std::vector<ScaleTick> ticksOf(const TemperatureSpan& span, std::size_t most) {
  // A step that gives too many ticks, of whatever width the span is.
  RoundStep step{static_cast<int>(std::floor(std::log10(span.high - span.low))) - 2, 0};
  while (lastOf(span, step) - firstOf(span, step) + 1.0 > static_cast<double>(most)) step = step.next();
  std::vector<ScaleTick> ticks;
  const auto count = static_cast<int>(lastOf(span, step) - firstOf(span, step)) + 1;
  for (int i = 0; i < count; ++i) {
    const double temperature = (firstOf(span, step) + i) * step.value();
    ticks.push_back({(temperature - span.low) / (span.high - span.low), labelOf(temperature, step)});
  }
  return ticks;
}

}  // namespace keocam::cli
