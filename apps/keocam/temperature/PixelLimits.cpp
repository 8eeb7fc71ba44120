#include "apps/keocam/temperature/PixelLimits.h"

namespace keocam::cli {
namespace {

void add(RawStretch& stretch, int raw) {
  if (stretch.first > stretch.last) stretch.first = raw;
  stretch.last = raw;
}

bool isIn(const RawStretch& stretch, int raw) { return raw >= stretch.first && raw <= stretch.last; }

}  // namespace

RawLimits rawLimitsOf(const SensorModel& model) {
  RawLimits limits;
  if (model.meaning != RawMeaning::Counts) return limits;
  for (int raw = 0; raw <= UINT16_MAX; ++raw) {
    const double celsius = model.celsius(static_cast<uint16_t>(raw));
    if (celsius <= model.limits.lowest) add(limits.low, raw);
    if (celsius >= model.limits.highest) add(limits.high, raw);
  }
  return limits;
}

LimitedPixels limitedPixels(const RawImage& image, const RegionSpans& region, const RawLimits& limits) {
  LimitedPixels pixels;
  for (const RowSpan& span : region.spans()) {
    const uint16_t* const row = image.counts.data() + static_cast<std::size_t>(span.y) * image.width;
    for (int x = span.x_begin; x < span.x_end; ++x) {
      pixels.low += isIn(limits.low, row[x]) ? 1 : 0;
      pixels.high += isIn(limits.high, row[x]) ? 1 : 0;
    }
  }
  return pixels;
}

}  // namespace keocam::cli
