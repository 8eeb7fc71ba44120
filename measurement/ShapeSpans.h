// Each shape cut into spans of rows. Private to this folder; the shapes have been checked.
#pragma once

#include <cstdint>
#include <vector>

#include "measurement/RegionSpans.h"

namespace keocam {

struct ImageSize {
  int width;
  int height;
};

std::vector<RowSpan> spansOf(const Spot& spot, ImageSize size);
std::vector<RowSpan> spansOf(const Box& box, ImageSize size);
std::vector<RowSpan> spansOf(const Ellipse& ellipse, ImageSize size);
std::vector<RowSpan> spansOf(const Polygon& polygon, ImageSize size);
std::vector<RowSpan> spansOf(const Line& line, ImageSize size);
std::vector<RowSpan> spansOf(const Mask& mask, ImageSize size);

/// A stretch of whole numbers, both ends included; empty if the last is below the first. 64 bits hold the sum of any
/// two coordinates.
struct Stretch {
  int64_t first;
  int64_t last;
};

/// The part of a stretch that is within 0 to size - 1.
Stretch clipped(Stretch stretch, int size);

/// Adds what lies in the image of a stretch of a row that does: 0 <= y < height.
void addSpan(std::vector<RowSpan>& spans, ImageSize size, int64_t y, Stretch columns);

/// 64 bits do not hold the product of two differences of coordinates.
__extension__ using Int128 = __int128;

/// The largest whole number that is not above the quotient; the divisor is positive.
constexpr Int128 floorOfQuotient(Int128 dividend, Int128 divisor) {
  const Int128 quotient = dividend / divisor;
  return dividend % divisor < 0 ? quotient - 1 : quotient;
}

}  // namespace keocam
