#include "apps/keocam/picture/Png.h"

#include <png.h>

#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

namespace keocam::cli {
namespace {

static_assert(sizeof(Rgb) == 3, "a row of pixels is handed to the encoder as it lies in memory");

struct FreeImage {
  void operator()(png_image* image) const { png_image_free(image); }
};

[[noreturn]] void fail(const png_image& description) {
  throw std::runtime_error(std::string("The picture cannot be encoded as PNG: ") + description.message);
}

}  // namespace

std::vector<uint8_t> encodePng(const RgbImage& image) {
  constexpr std::size_t kLongestSide = std::numeric_limits<int32_t>::max() / static_cast<int32_t>(sizeof(Rgb));
  if (image.pixels.empty() || image.width > kLongestSide || image.height > kLongestSide) {
    throw std::runtime_error("A picture of " + std::to_string(image.width) + " x " + std::to_string(image.height) +
                             " pixels cannot be encoded as PNG.");
  }
  png_image description{};
  description.version = PNG_IMAGE_VERSION;
  description.width = static_cast<png_uint_32>(image.width);
  description.height = static_cast<png_uint_32>(image.height);
  description.format = PNG_FORMAT_RGB;
  const std::unique_ptr<png_image, FreeImage> owner(&description);

  png_alloc_size_t size_bytes = PNG_IMAGE_PNG_SIZE_MAX(description);
  std::vector<uint8_t> bytes(size_bytes);
  if (png_image_write_to_memory(&description, bytes.data(), &size_bytes, 0, image.pixels.data(), 0, nullptr) == 0) {
    fail(description);
  }
  bytes.resize(size_bytes);
  return bytes;
}

}  // namespace keocam::cli
