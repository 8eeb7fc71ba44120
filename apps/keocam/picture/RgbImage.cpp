#include "apps/keocam/picture/RgbImage.h"

#include <algorithm>

namespace keocam::cli {

void RgbImage::fill(std::size_t x, std::size_t y, std::size_t fill_width, std::size_t fill_height, Rgb colour) {
  const std::size_t right = std::min(width, x + fill_width);
  const std::size_t bottom = std::min(height, y + fill_height);
  for (std::size_t row = y; row < bottom; ++row) {
    for (std::size_t column = x; column < right; ++column) at(column, row) = colour;
  }
}

}  // namespace keocam::cli
