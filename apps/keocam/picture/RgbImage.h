// A picture in memory, 8 bits per channel.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace keocam::cli {

struct Rgb {
  uint8_t red = 0;
  uint8_t green = 0;
  uint8_t blue = 0;
};

inline bool operator==(const Rgb& a, const Rgb& b) { return a.red == b.red && a.green == b.green && a.blue == b.blue; }
inline bool operator!=(const Rgb& a, const Rgb& b) { return !(a == b); }

struct RgbImage {
  RgbImage(std::size_t image_width, std::size_t image_height, Rgb background)
      : width(image_width), height(image_height), pixels(image_width * image_height, background) {}

  Rgb& at(std::size_t x, std::size_t y) { return pixels[y * width + x]; }
  const Rgb& at(std::size_t x, std::size_t y) const { return pixels[y * width + x]; }

  /// Fills the part of the rectangle that lies within the picture.
  void fill(std::size_t x, std::size_t y, std::size_t fill_width, std::size_t fill_height, Rgb colour);

  std::size_t width;
  std::size_t height;
  std::vector<Rgb> pixels;  ///< row by row, from the top
};

}  // namespace keocam::cli
