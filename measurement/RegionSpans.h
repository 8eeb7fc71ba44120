// A region laid onto the pixels of an image of some size.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "measurement/Region.h"

namespace keocam {

/// Pixels x_begin to x_end - 1 of a row; at least one.
struct RowSpan {
  int y;
  int x_begin;
  int x_end;
};
constexpr bool operator==(const RowSpan& a, const RowSpan& b) {
  return a.y == b.y && a.x_begin == b.x_begin && a.x_end == b.x_end;
}

/// The pixels of a region that lie in an image of width by height pixels. Make one, and measure as many images of that
/// size with it as you like, also from several threads.
class RegionSpans {
 public:
  /// Throws std::invalid_argument, with a sentence for a person, for a region with a problemOf(), for a mask of another
  /// size, and for a negative size.
  RegionSpans(const Region& region, int width, int height);

  int width() const { return width_; }
  int height() const { return height_; }

  /// From the top, in each row from the left; none overlap or touch within a row.
  const std::vector<RowSpan>& spans() const& { return spans_; }
  std::vector<RowSpan> spans() && { return std::move(spans_); }

  /// How many pixels the region has in the image.
  int64_t pixelCount() const;

 private:
  int width_;
  int height_;
  std::vector<RowSpan> spans_;
};

}  // namespace keocam
