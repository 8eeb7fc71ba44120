// Temperatures as TIFF: 32-bit floating-point samples, little endian, for programs that calculate with them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "measurement/TemperatureImage.h"

namespace keocam::cli {

/// What the file says beside the samples; 7-bit ASCII.
struct TiffTexts {
  std::string description;
  std::string make;
  std::string model;
  std::string software;
  std::string time;  ///< "2026:11:21 09:15:36"
};

/// The bytes of a TIFF file with one sample per pixel, uncompressed. The file also has the least and the greatest
/// finite sample, if there is one. Throws std::runtime_error for an image without pixels, or one too large for the
/// format.
std::vector<uint8_t> encodeTiff(const TemperatureImage<float>& image, const TiffTexts& texts);

}  // namespace keocam::cli
