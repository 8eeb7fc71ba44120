// Walks the values of a region. Private to this folder.
#pragma once

#include <cstddef>
#include <stdexcept>

#include "measurement/RegionSpans.h"
#include "measurement/TemperatureImage.h"

namespace keocam {

/// Calls visit(const Value* values, std::size_t count, Pixel first) for each run of pixels, in row order. Throws
/// std::invalid_argument if the region was laid out for an image of another size.
template <typename Value, typename Visit>
void forEachRun(const TemperatureImage<Value>& image, const RegionSpans& region, const Visit& visit) {
  if (region.width() != image.width() || region.height() != image.height()) {
    throw std::invalid_argument("The region was laid out for an image of another size.");
  }
  for (const RowSpan& span : region.spans()) {
    visit(image.row(span.y) + span.x_begin, static_cast<std::size_t>(span.x_end - span.x_begin),
          Pixel{span.x_begin, span.y});
  }
}

}  // namespace keocam
