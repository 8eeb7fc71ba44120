// A received frame's pixels and what their bytes mean.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/keocam/frames/RawStatistics.h"

namespace keocam::cli {

/// One row per pixel format whose raw counts are understood.
struct PixelFormat {
  uint32_t code;  ///< as GenICam numbers it
  const char* name;
  std::size_t bytes_per_pixel;
  RawStatistics (*statistics)(const uint8_t* data, std::size_t pixels);
};

/// Null for a format that is not in the table.
const PixelFormat* findPixelFormat(uint32_t code);

/// The format's name, or its code in the form 0x01100025.
std::string pixelFormatName(uint32_t code);

/// The names in the table, for messages: "Mono8, Mono14, Mono16".
std::string understoodPixelFormats();

/// A frame in memory that belongs to someone else.
struct RawFrame {
  const uint8_t* data = nullptr;
  std::size_t size_bytes = 0;
  uint32_t width = 0;
  uint32_t height = 0;
  uint32_t pixel_format = 0;
};

/// Over all whole pixels in the frame. Nothing for a format that is not understood, or for a frame without pixels.
std::optional<RawStatistics> rawStatisticsOf(const RawFrame& frame);

/// A frame's counts, row by row.
struct RawImage {
  uint32_t width = 0;
  uint32_t height = 0;
  std::vector<uint16_t> counts;  ///< width x height
};

/// Nothing for a format that is not understood, and for a frame whose bytes do not fill its width and height.
std::optional<RawImage> rawImageOf(const RawFrame& frame);

}  // namespace keocam::cli
