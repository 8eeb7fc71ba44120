// Images for tests, with the memory that a TemperatureImage only looks at.
#pragma once

#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

#include "measurement/TemperatureImage.h"

namespace test_images {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

template <typename Value>
struct TestImage {
  int width;
  int height;
  std::vector<Value> values;

  TestImage(int image_width, int image_height, std::vector<Value> image_values)
      : width(image_width), height(image_height), values(std::move(image_values)) {}
  TestImage(int image_width, int image_height, Value value)
      : TestImage(
            image_width, image_height,
            std::vector<Value>(static_cast<std::size_t>(image_width) * static_cast<std::size_t>(image_height), value)) {
  }

  Value& at(int x, int y) { return values[static_cast<std::size_t>(std::ptrdiff_t{y} * width + x)]; }
  keocam::TemperatureImage<Value> view() const { return {values.data(), width, height}; }
};

using FloatImage = TestImage<float>;
using DoubleImage = TestImage<double>;

/// An image whose pixels are 0, 1, 2 and so on in row order.
inline DoubleImage numbered(int width, int height) {
  DoubleImage image(width, height, 0.0);
  for (std::size_t i = 0; i < image.values.size(); ++i) image.values[i] = static_cast<double>(i);
  return image;
}

}  // namespace test_images
