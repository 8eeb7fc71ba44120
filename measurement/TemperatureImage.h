// A look at temperatures that lie somewhere in memory as an image.
#pragma once

#include <cstddef>
#include <stdexcept>

namespace keocam {

/// An image of floats or doubles, row by row from the top, each row from the left. Its values are of whatever unit they
/// were made in, and results are in the same. It owns nothing: the values must outlive it, and must not change while a
/// function reads them. Copies are cheap, and may be read from several threads.
///
///     const keocam::TemperatureImage image(celsius.data(), 640, 512);
template <typename Value>
class TemperatureImage {
 public:
  /// Rows that follow each other without a gap. Throws std::invalid_argument as below.
  TemperatureImage(const Value* values, int width, int height) : TemperatureImage(values, width, height, width) {}

  /// Rows whose first values lie `stride_values` values apart, such as those of a part of a larger image. Throws
  /// std::invalid_argument for a negative size, a stride shorter than a row, or pixels without values.
  TemperatureImage(const Value* values, int width, int height, std::ptrdiff_t stride_values)
      : values_(values), width_(width), height_(height), stride_values_(stride_values) {
    if (width < 0 || height < 0) throw std::invalid_argument("An image's width and height cannot be negative.");
    if (stride_values < width) throw std::invalid_argument("An image's stride cannot be shorter than its width.");
    if (values == nullptr && width > 0 && height > 0) throw std::invalid_argument("An image of pixels needs values.");
  }

  int width() const { return width_; }
  int height() const { return height_; }

  /// The first value of a row, 0 to height() - 1.
  const Value* row(int y) const { return values_ + y * stride_values_; }

  /// The value of a pixel within the image.
  Value at(int x, int y) const { return row(y)[x]; }

 private:
  const Value* values_;
  int width_;
  int height_;
  std::ptrdiff_t stride_values_;
};

}  // namespace keocam
