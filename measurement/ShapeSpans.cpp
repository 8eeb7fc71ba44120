// The shapes whose rows are one stretch each, and masks.
#include "measurement/ShapeSpans.h"

#include <algorithm>

#include "measurement/LinePixels.h"

namespace keocam {
namespace {

std::vector<RowSpan> rectangle(Stretch columns, Stretch rows, ImageSize size) {
  std::vector<RowSpan> spans;
  const Stretch inside = clipped(rows, size.height);
  for (int64_t y = inside.first; y <= inside.last; ++y) addSpan(spans, size, y, columns);
  return spans;
}

/// How far an ellipse reaches to each side, `dy` rows from its centre: the largest w with
/// (w / radius_x)^2 + (dy / radius_y)^2 <= 1, found in whole numbers so that no rounding decides.
int64_t reachOf(const Ellipse& ellipse, int64_t dy) {
  const Int128 rx = ellipse.radius_x;
  const Int128 ry = ellipse.radius_y;
  const Int128 budget = rx * rx * (ry * ry - Int128{dy} * dy);
  int64_t reached = 0;
  int64_t beyond = int64_t{ellipse.radius_x} + 1;
  while (beyond - reached > 1) {
    const int64_t middle = (reached + beyond) / 2;
    (Int128{middle} * middle * ry * ry <= budget ? reached : beyond) = middle;
  }
  return reached;
}

}  // namespace

Stretch clipped(Stretch stretch, int size) {
  return {std::max<int64_t>(stretch.first, 0), std::min<int64_t>(stretch.last, int64_t{size} - 1)};
}

void addSpan(std::vector<RowSpan>& spans, ImageSize size, int64_t y, Stretch columns) {
  const Stretch inside = clipped(columns, size.width);
  if (inside.last < inside.first) return;
  spans.push_back({static_cast<int>(y), static_cast<int>(inside.first), static_cast<int>(inside.last + 1)});
}

std::vector<RowSpan> spansOf(const Spot& spot, ImageSize size) {
  const int64_t x = spot.x;
  const int64_t y = spot.y;
  const int64_t radius = spot.radius;
  return rectangle({x - radius, x + radius}, {y - radius, y + radius}, size);
}

std::vector<RowSpan> spansOf(const Box& box, ImageSize size) {
  const int64_t x = box.x;
  const int64_t y = box.y;
  return rectangle({x, x + box.width - 1}, {y, y + box.height - 1}, size);
}

std::vector<RowSpan> spansOf(const Ellipse& ellipse, ImageSize size) {
  std::vector<RowSpan> spans;
  const int64_t x = ellipse.center_x;
  const int64_t y = ellipse.center_y;
  const Stretch rows = clipped({y - ellipse.radius_y, y + ellipse.radius_y}, size.height);
  for (int64_t row = rows.first; row <= rows.last; ++row) {
    const int64_t reach = reachOf(ellipse, row - y);
    addSpan(spans, size, row, {x - reach, x + reach});
  }
  return spans;
}

std::vector<RowSpan> spansOf(const Line& line, ImageSize size) {
  std::vector<Pixel> pixels = linePixels(line, size.width, size.height);
  std::sort(pixels.begin(), pixels.end(), [](Pixel a, Pixel b) { return a.y != b.y ? a.y < b.y : a.x < b.x; });
  std::vector<RowSpan> spans;
  for (const Pixel pixel : pixels) {
    if (!spans.empty() && spans.back().y == pixel.y && spans.back().x_end == pixel.x) {
      ++spans.back().x_end;
    } else {
      spans.push_back({pixel.y, pixel.x, pixel.x + 1});
    }
  }
  return spans;
}

std::vector<RowSpan> spansOf(const Mask& mask, ImageSize size) {
  const auto isIn = [](uint8_t byte) { return byte != 0; };
  std::vector<RowSpan> spans;
  for (int y = 0; y < size.height; ++y) {
    const uint8_t* const row = mask.pixels.data() + std::ptrdiff_t{y} * size.width;
    const uint8_t* const end = row + size.width;
    for (const uint8_t* first = std::find_if(row, end, isIn); first != end;) {
      const uint8_t* const last = std::find_if_not(first, end, isIn);
      spans.push_back({y, static_cast<int>(first - row), static_cast<int>(last - row)});
      first = std::find_if(last, end, isIn);
    }
  }
  return spans;
}

}  // namespace keocam
