// Random regions against definitions that ask every pixel by itself.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <random>

#include "measurement/RegionText.h"
#include "tests/unit/measurement/Drawing.h"

namespace {

using keocam::Box;
using keocam::Ellipse;
using keocam::Line;
using keocam::Mask;
using keocam::Pixel;
using keocam::Polygon;
using keocam::Region;
using keocam::Spot;

/// Twice the area of the triangle, positive if it turns one way.
int64_t turnOf(Pixel a, Pixel b, Pixel c) {
  return int64_t{b.x - a.x} * (c.y - a.y) - int64_t{b.y - a.y} * (c.x - a.x);
}

bool isOnEdge(Pixel a, Pixel b, Pixel p) {
  return turnOf(a, b, p) == 0 && p.x >= std::min(a.x, b.x) && p.x <= std::max(a.x, b.x) && p.y >= std::min(a.y, b.y) &&
         p.y <= std::max(a.y, b.y);
}

/// Whether the pixel is in a region, by the words that define the shape.
struct Contains {
  Pixel p;

  bool operator()(const Spot& s) const { return std::abs(p.x - s.x) <= s.radius && std::abs(p.y - s.y) <= s.radius; }
  bool operator()(const Box& b) const {
    return p.x >= b.x && p.y >= b.y && p.x < b.x + b.width && p.y < b.y + b.height;
  }
  bool operator()(const Ellipse& e) const {
    const int64_t dx = p.x - e.center_x;
    const int64_t dy = p.y - e.center_y;
    const int64_t rx = e.radius_x;
    const int64_t ry = e.radius_y;
    return std::abs(dx) <= rx && std::abs(dy) <= ry && dx * dx * ry * ry + dy * dy * rx * rx <= rx * rx * ry * ry;
  }
  bool operator()(const Polygon& polygon) const {
    bool inside = false;
    for (std::size_t i = 0; i < polygon.corners.size(); ++i) {
      const Pixel a = polygon.corners[i];
      const Pixel b = polygon.corners[(i + 1) % polygon.corners.size()];
      if (isOnEdge(a, b, p)) return true;
      // A ray to the right crosses the edge if it has the pixel on the proper side.
      if ((a.y > p.y) != (b.y > p.y)) inside ^= (turnOf(a, b, p) > 0) == (b.y > a.y);
    }
    return inside;
  }
  bool operator()(const Line& line) const {
    const bool steep = std::abs(line.y2 - line.y1) > std::abs(line.x2 - line.x1);
    int along = steep ? p.y - line.y1 : p.x - line.x1;
    int across = steep ? p.x - line.x1 : p.y - line.y1;
    int length = steep ? line.y2 - line.y1 : line.x2 - line.x1;
    int rise = steep ? line.x2 - line.x1 : line.y2 - line.y1;
    if (length < 0) {
      along -= length;
      across -= rise;
      length = -length;
      rise = -rise;
    }
    if (length == 0) return along == 0 && across == 0;
    // No farther across than half a pixel; half way, the pixel farther right or down is the line's.
    const int distance = 2 * (across * length - along * rise);
    return along >= 0 && along <= length && distance > -length && distance <= length;
  }
  bool operator()(const Mask& mask) const {
    return mask.pixels[static_cast<std::size_t>(std::ptrdiff_t{p.y} * mask.width + p.x)] != 0;
  }
};

std::string drawSlowly(const Region& region, int width, int height) {
  std::string text;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) text += std::visit(Contains{{x, y}}, region) ? '#' : '.';
    text += '\n';
  }
  return text;
}

class RegionPropertyTest : public testing::Test {
 protected:
  int between(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

  Region region(int shape, int width, int height) {
    const auto x = [&] { return between(-width, 2 * width); };
    const auto y = [&] { return between(-height, 2 * height); };
    switch (shape) {
      case 0:
        return Spot{x(), y(), between(0, width)};
      case 1:
        return Box{x(), y(), between(1, 2 * width), between(1, 2 * height)};
      case 2:
        return Ellipse{x(), y(), between(0, width), between(0, height)};
      case 3:
        return Line{x(), y(), x(), y()};
      case 4: {
        Polygon polygon;
        for (int corners = between(3, 9); corners > 0; --corners) polygon.corners.push_back({x(), y()});
        return polygon;
      }
      default: {
        Mask mask{width, height, {}};
        for (int i = 0; i < width * height; ++i) mask.pixels.push_back(static_cast<uint8_t>(between(0, 2)));
        return mask;
      }
    }
  }

  std::mt19937 random_{20};
};

TEST_F(RegionPropertyTest, RandomRegions_HaveThePixelsOfTheirDefinition) {
  int not_empty = 0;
  for (int i = 0; i < 6000; ++i) {
    const int width = between(1, 24);
    const int height = between(1, 24);
    const Region random = region(i % 6, width, height);
    const std::string drawn = drawing::draw(random, width, height);
    ASSERT_EQ(drawn, drawSlowly(random, width, height)) << keocam::textOf(random);
    if (drawn.find('#') != std::string::npos) ++not_empty;
  }
  EXPECT_GT(not_empty, 3000);
}

TEST_F(RegionPropertyTest, RandomRegions_SpansAreSortedAndApart) {
  for (int i = 0; i < 3000; ++i) {
    const Region random = region(i % 6, 20, 20);
    const keocam::RegionSpans laid_out(random, 20, 20);
    keocam::RowSpan before{-1, 0, 0};
    for (const keocam::RowSpan& span : laid_out.spans()) {
      ASSERT_LT(span.x_begin, span.x_end);
      ASSERT_TRUE(span.y > before.y || (span.y == before.y && span.x_begin > before.x_end)) << keocam::textOf(random);
      before = span;
    }
  }
}

TEST_F(RegionPropertyTest, Text_RoundTrips) {
  for (int i = 0; i < 500; ++i) {
    const Region random = region(i % 5, 700, 700);
    const auto parsed = keocam::parseRegion("n=" + keocam::textOf(random));
    ASSERT_TRUE(std::holds_alternative<keocam::NamedRegion>(parsed)) << keocam::textOf(random);
    const keocam::Region& again = std::get<keocam::NamedRegion>(parsed).region;
    ASSERT_EQ(again.index(), random.index());
    ASSERT_EQ(keocam::textOf(again), keocam::textOf(random));
  }
}

}  // namespace
