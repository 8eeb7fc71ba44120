// The parts of an image that can be measured.
//
// Coordinates are those of pixels: x from the left, y from the top, (0, 0) the top left one. They may lie anywhere an
// int can: what lies outside the image is cut off, and a region wholly outside has no pixels. A pixel belongs to a
// region or does not; there are no shares.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace keocam {

struct Pixel {
  int x = 0;
  int y = 0;
};
constexpr bool operator==(Pixel a, Pixel b) { return a.x == b.x && a.y == b.y; }
constexpr bool operator!=(Pixel a, Pixel b) { return !(a == b); }

/// A pixel, or the square of 2 * radius + 1 pixels a side around it. The radius is at least 0.
struct Spot {
  int x = 0;
  int y = 0;
  int radius = 0;
};

/// A rectangle from its top left pixel. Width and height are at least 1.
struct Box {
  int x = 0;
  int y = 0;
  int width = 1;
  int height = 1;
};

/// The pixels whose centres are in or on the ellipse with these half axes, at least 0, around the centre of a pixel. It
/// is 2 * radius + 1 pixels wide and high; a radius of 0 makes it a line.
struct Ellipse {
  int center_x = 0;
  int center_y = 0;
  int radius_x = 0;
  int radius_y = 0;
};

/// The pixels whose centres are on the closed outline through the centres of these, or inside it by the even-odd rule:
/// where the outline crosses itself, what it winds around twice is outside. At least 3 corners.
/// Laying it out takes time in proportion to its corners times the image's rows.
struct Polygon {
  std::vector<Pixel> corners;
};

/// The pixels of Bresenham's line, both ends included, one in each column, or in each row if it is steep: 8-connected.
/// It has the same pixels from either end: half way between two it takes the one farther right or down.
struct Line {
  int x1 = 0;
  int y1 = 0;
  int x2 = 0;
  int y2 = 0;
};

/// The pixels whose byte is not 0: a byte per pixel, row by row without gaps. It is of the image's size, at least 1
/// by 1.
struct Mask {
  int width = 0;
  int height = 0;
  std::vector<uint8_t> pixels;
};

using Region = std::variant<Spot, Box, Ellipse, Polygon, Line, Mask>;

/// What is wrong with a region whatever the image, a sentence for a person; empty if nothing is.
std::string problemOf(const Region& region);

}  // namespace keocam
