// Pictures as PNG.
#pragma once

#include <cstdint>
#include <vector>

#include "apps/keocam/picture/RgbImage.h"

namespace keocam::cli {

/// The bytes of a PNG file, 8 bits per channel, RGB. Throws std::runtime_error with the encoder's reason, as for a
/// picture without pixels.
std::vector<uint8_t> encodePng(const RgbImage& image);

}  // namespace keocam::cli
