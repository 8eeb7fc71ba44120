#include "apps/keocam/frames/RawFrame.h"

#include <cstdio>

namespace keocam::cli {
namespace {

constexpr PixelFormat kPixelFormats[] = {
    {0x01080001, "Mono8", 1, statisticsOfBytes},
    {0x01100025, "Mono14", 2, statisticsOfWords},
    {0x01100007, "Mono16", 2, statisticsOfWords},
};

}  // namespace

const PixelFormat* findPixelFormat(uint32_t code) {
  for (const PixelFormat& format : kPixelFormats) {
    if (format.code == code) return &format;
  }
  return nullptr;
}

std::string pixelFormatName(uint32_t code) {
  if (const PixelFormat* const format = findPixelFormat(code)) return format->name;
  char text[11];
  std::snprintf(text, sizeof text, "0x%08x", static_cast<unsigned int>(code));
  return text;
}

std::string understoodPixelFormats() {
  std::string names;
  for (const PixelFormat& format : kPixelFormats) names += (names.empty() ? "" : ", ") + std::string(format.name);
  return names;
}

std::optional<RawStatistics> rawStatisticsOf(const RawFrame& frame) {
  const PixelFormat* const format = findPixelFormat(frame.pixel_format);
  if (format == nullptr) return std::nullopt;
  const std::size_t pixels = frame.size_bytes / format->bytes_per_pixel;
  if (pixels == 0) return std::nullopt;
  return format->statistics(frame.data, pixels);
}

std::optional<RawImage> rawImageOf(const RawFrame& frame) {
  const PixelFormat* const format = findPixelFormat(frame.pixel_format);
  if (format == nullptr || frame.width == 0 || frame.height == 0) return std::nullopt;
  // Both sides are 32 bits wide, so their product cannot exceed 64.
  const uint64_t pixels = uint64_t{frame.width} * frame.height;
  if (frame.size_bytes / format->bytes_per_pixel < pixels) return std::nullopt;

  RawImage image{frame.width, frame.height, std::vector<uint16_t>(pixels)};
  const std::size_t step = format->bytes_per_pixel;
  for (std::size_t i = 0; i < image.counts.size(); ++i) {
    const uint8_t* const pixel = frame.data + i * step;
    const unsigned int high_byte = step == 2 ? pixel[1] : 0U;
    image.counts[i] = static_cast<uint16_t>(pixel[0] | (high_byte << 8U));
  }
  return image;
}

}  // namespace keocam::cli
