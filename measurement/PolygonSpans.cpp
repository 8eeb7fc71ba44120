// Polygons cut into spans of rows, in whole numbers, so that no rounding decides whose a pixel is.
#include <algorithm>
#include <limits>

#include "measurement/ShapeSpans.h"

namespace keocam {
namespace {

/// What a polygon's outline does to one row of pixels.
struct RowOfPolygon {
  // Where edges cross the row, rounded down and rounded up. Rounding keeps the order, so each may be sorted by itself.
  std::vector<int64_t> crossings_down;
  std::vector<int64_t> crossings_up;
  // Pixels on the outline that no crossing tells: corners and horizontal edges.
  std::vector<Stretch> outline;
};

/// An edge crosses a row if one end is on or above it and the other below. A corner on the row thus counts once where
/// the outline passes through, and twice or not at all where it turns back; every row has an even number of crossings.
void addEdge(RowOfPolygon& row, Pixel a, Pixel b, int64_t y) {
  if (a.y == y) {
    const bool horizontal = b.y == y;
    row.outline.push_back({horizontal ? std::min(a.x, b.x) : a.x, horizontal ? std::max(a.x, b.x) : a.x});
  }
  if ((a.y <= y) == (b.y <= y)) return;
  if (a.y > b.y) std::swap(a, b);
  const Int128 dividend = Int128{y - a.y} * (int64_t{b.x} - a.x);
  const Int128 divisor = int64_t{b.y} - a.y;
  row.crossings_down.push_back(a.x + static_cast<int64_t>(floorOfQuotient(dividend, divisor)));
  row.crossings_up.push_back(a.x - static_cast<int64_t>(floorOfQuotient(-dividend, divisor)));
}

/// The row's stretches from the left, without overlaps.
std::vector<Stretch> stretchesOf(RowOfPolygon& row) {
  std::sort(row.crossings_down.begin(), row.crossings_down.end());
  std::sort(row.crossings_up.begin(), row.crossings_up.end());
  std::vector<Stretch> all = row.outline;
  for (std::size_t i = 0; i + 1 < row.crossings_up.size(); i += 2) {
    const Stretch inside{row.crossings_up[i], row.crossings_down[i + 1]};
    if (inside.first <= inside.last) all.push_back(inside);
  }
  std::sort(all.begin(), all.end(), [](Stretch a, Stretch b) { return a.first < b.first; });

  std::vector<Stretch> merged;
  for (const Stretch stretch : all) {
    if (!merged.empty() && stretch.first <= merged.back().last + 1) {
      merged.back().last = std::max(merged.back().last, stretch.last);
    } else {
      merged.push_back(stretch);
    }
  }
  return merged;
}

}  // namespace

std::vector<RowSpan> spansOf(const Polygon& polygon, ImageSize size) {
  const auto [top, bottom] =
      std::minmax_element(polygon.corners.begin(), polygon.corners.end(), [](Pixel a, Pixel b) { return a.y < b.y; });
  const Stretch rows = clipped({top->y, bottom->y}, size.height);
  std::vector<RowSpan> spans;
  RowOfPolygon row;
  for (int64_t y = rows.first; y <= rows.last; ++y) {
    row.crossings_down.clear();
    row.crossings_up.clear();
    row.outline.clear();
    for (std::size_t i = 0, last = polygon.corners.size() - 1; i <= last; ++i) {
      addEdge(row, polygon.corners[i], polygon.corners[i == last ? 0 : i + 1], y);
    }
    for (const Stretch stretch : stretchesOf(row)) addSpan(spans, size, y, stretch);
  }
  return spans;
}

}  // namespace keocam
