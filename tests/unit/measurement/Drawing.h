// Regions drawn as text, for tests to compare.
#pragma once

#include <cstddef>
#include <string>

#include "measurement/RegionSpans.h"

namespace drawing {

/// A line of text for each row of pixels: '#' in the region, '.' outside. A pixel of two spans is '2'.
inline std::string draw(const keocam::Region& region, int width, int height) {
  const keocam::RegionSpans laid_out(region, width, height);
  const std::string row = std::string(static_cast<std::size_t>(width), '.') + "\n";
  std::string text;
  for (int y = 0; y < height; ++y) text += row;
  for (const keocam::RowSpan& span : laid_out.spans()) {
    for (int x = span.x_begin; x < span.x_end; ++x) {
      char& pixel = text[static_cast<std::size_t>(std::ptrdiff_t{span.y} * (width + 1) + x)];
      pixel = pixel == '.' ? '#' : '2';
    }
  }
  return text;
}

}  // namespace drawing
