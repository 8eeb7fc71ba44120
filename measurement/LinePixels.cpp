#include "measurement/LinePixels.h"

#include <algorithm>
#include <cstdlib>

#include "measurement/ShapeSpans.h"

namespace keocam {
namespace {

/// A point along the line's longer extent and across it.
struct Point {
  int64_t along;
  int64_t across;
};

}  // namespace

std::vector<Pixel> linePixels(const Line& line, int width, int height) {
  const bool steep = std::abs(int64_t{line.y2} - line.y1) > std::abs(int64_t{line.x2} - line.x1);
  Point from = steep ? Point{line.y1, line.x1} : Point{line.x1, line.y1};
  Point to = steep ? Point{line.y2, line.x2} : Point{line.x2, line.y2};
  // Where the line is half way between two pixels, its direction must not choose: it always runs forwards.
  const bool backwards = from.along > to.along;
  if (backwards) std::swap(from, to);

  const Int128 length = to.along - from.along;
  const Int128 rise = to.across - from.across;
  const Stretch steps = clipped({from.along, to.along}, steep ? height : width);
  std::vector<Pixel> pixels;
  for (int64_t along = steps.first; along <= steps.last; ++along) {
    // The nearest whole number to step * rise / length; a line of one pixel has no length.
    const Int128 step = along - from.along;
    const Int128 risen = length == 0 ? 0 : floorOfQuotient(2 * step * rise + length, 2 * length);
    const int64_t across = from.across + static_cast<int64_t>(risen);
    if (across < 0 || across >= (steep ? width : height)) continue;
    pixels.push_back({static_cast<int>(steep ? across : along), static_cast<int>(steep ? along : across)});
  }
  if (backwards) std::reverse(pixels.begin(), pixels.end());
  return pixels;
}

}  // namespace keocam
