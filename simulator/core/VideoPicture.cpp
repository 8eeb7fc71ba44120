#include "simulator/core/VideoPicture.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

namespace simulator {
namespace {

constexpr uint32_t kLargestValue = 16383;
constexpr uint32_t kBars = 8;
constexpr uint32_t kSquare = 16;
constexpr int32_t kOffsetCounts = 8;

/// Bits of a column or row that look random and are the same everywhere.
uint64_t scrambled(uint64_t seed, uint64_t index) {
  uint64_t bits = seed * 0x9E3779B97F4A7C15U + index + 1;
  bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
  bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
  return bits ^ (bits >> 31);
}

int32_t offsetOf(uint64_t bits) { return static_cast<int32_t>(bits % (2 * kOffsetCounts + 1)) - kOffsetCounts; }

uint32_t rampValue(uint32_t at, uint32_t length) { return at * kLargestValue / std::max(1U, length - 1); }

uint32_t barValue(uint32_t at, uint32_t length) { return rampValue(at * kBars / length, kBars); }

uint16_t patternValue(CorePattern pattern, ImageSize sensor, uint32_t x, uint32_t y) {
  const auto value = [&]() -> uint32_t {
    switch (pattern) {
      case CorePattern::HorizontalRamp:
        return rampValue(x, sensor.width);
      case CorePattern::VerticalBars:
        return barValue(x, sensor.width);
      case CorePattern::VerticalRamp:
        return rampValue(y, sensor.height);
      case CorePattern::HorizontalBars:
        return barValue(y, sensor.height);
      case CorePattern::Checkerboard:
        return (x / kSquare + y / kSquare) % 2 == 0 ? kLargestValue / 4 : kLargestValue / 4 * 3;
      case CorePattern::DiagonalRamp:
        return ((x + y) * 16) & kLargestValue;
      case CorePattern::Off:
        break;
    }
    return 0;
  };
  return static_cast<uint16_t>(value());
}

/// `counts_per_sensor_count` says how large the sensor's offsets are in the picture.
void addOffsets(ImageSize window, const CoreVideo& video, double counts_per_sensor_count,
                std::vector<uint16_t>& picture) {
  const int32_t drift = std::clamp(video.drift_millikelvin, -kLargestDriftMillikelvin, kLargestDriftMillikelvin);
  if (drift == 0) return;
  const auto counts = [&](int32_t offset) {
    return static_cast<int32_t>(offset * drift / 1000.0 * counts_per_sensor_count);
  };
  std::vector<int32_t> columns(window.width);
  for (uint32_t x = 0; x < window.width; ++x) columns[x] = counts(columnOffset(video.offset_seed, x));
  for (uint32_t y = 0; y < window.height; ++y) {
    const int32_t row_counts = counts(rowOffset(video.offset_seed, y));
    uint16_t* row = picture.data() + std::size_t{y} * window.width;
    for (uint32_t x = 0; x < window.width; ++x) {
      row[x] = static_cast<uint16_t>(
          std::clamp(int32_t{row[x]} + columns[x] + row_counts, 0, static_cast<int32_t>(kLargestValue)));
    }
  }
}

/// The place on the sensor of a pixel of the picture, counted row by row.
std::size_t sensorPixel(ImageSize sensor, uint32_t x, uint32_t y, const CoreVideo& video) {
  const uint32_t from_x = video.left_to_right ? sensor.width - 1 - x : x;
  const uint32_t from_y = video.upside_down ? sensor.height - 1 - y : y;
  return std::size_t{from_y} * sensor.width + from_x;
}

/// The top left part of the mirrored sensor, of which `whole` is the picture.
std::vector<uint16_t> mirrored(const std::vector<uint16_t>& whole, ImageSize sensor, ImageSize window,
                               const CoreVideo& video) {
  std::vector<uint16_t> picture;
  picture.reserve(std::size_t{window.width} * window.height);
  for (uint32_t y = 0; y < window.height; ++y) {
    for (uint32_t x = 0; x < window.width; ++x) picture.push_back(whole[sensorPixel(sensor, x, y, video)]);
  }
  return picture;
}

void checkWindow(ImageSize sensor, ImageSize window) {
  if (window.width == 0 || window.height == 0 || window.width > sensor.width || window.height > sensor.height) {
    throw std::invalid_argument("the window does not fit the sensor");
  }
}

std::vector<uint16_t> renderPattern(ImageSize sensor, ImageSize window, CorePattern pattern) {
  std::vector<uint16_t> picture;
  picture.reserve(std::size_t{window.width} * window.height);
  for (uint32_t y = 0; y < window.height; ++y) {
    for (uint32_t x = 0; x < window.width; ++x) picture.push_back(patternValue(pattern, sensor, x, y));
  }
  return picture;
}

}  // namespace

int32_t columnOffset(uint64_t offset_seed, uint32_t column) { return offsetOf(scrambled(offset_seed, column)); }

int32_t rowOffset(uint64_t offset_seed, uint32_t row) { return offsetOf(scrambled(~offset_seed, row)); }

std::vector<uint16_t> renderVideo(const Scene& scene, uint32_t width, uint32_t height, const CoreVideo& video) {
  const ImageSize sensor = scene.settings().sensor;
  const ImageSize window{width, height};
  checkWindow(sensor, window);
  const bool mirrors = video.upside_down || video.left_to_right;
  // A mirrored window shows another part of the sensor, so the whole of it is needed.
  const ImageSize seen = mirrors ? sensor : window;
  std::vector<uint16_t> picture;
  if (video.pattern == CorePattern::Off) {
    picture = scene.render(seen.width, seen.height, video.scene_block, TestPattern::Off, video.response);
    addOffsets(seen, video, scene.countsPerSensorCount(video.response), picture);
  } else {
    picture = renderPattern(sensor, seen, video.pattern);
  }
  if (mirrors) picture = mirrored(picture, sensor, window, video);
  if (video.value_mask != kLargestValue) {
    for (uint16_t& value : picture) value = static_cast<uint16_t>(value & video.value_mask);
  }
  return picture;
}

std::vector<double> trueTemperatures(const Scene& scene, uint32_t width, uint32_t height, const CoreVideo& video) {
  const TemperatureScene* const temperatures = scene.temperatures();
  if (temperatures == nullptr) throw std::invalid_argument("the moving scene has no temperatures");
  const ImageSize sensor = scene.settings().sensor;
  checkWindow(sensor, {width, height});
  std::vector<double> celsius;
  celsius.reserve(std::size_t{width} * height);
  for (uint32_t y = 0; y < height; ++y) {
    for (uint32_t x = 0; x < width; ++x) {
      const std::size_t pixel = sensorPixel(sensor, x, y, video);
      celsius.push_back(temperatures->celsiusAt(static_cast<uint32_t>(pixel % sensor.width),
                                                static_cast<uint32_t>(pixel / sensor.width), video.scene_block));
    }
  }
  return celsius;
}

}  // namespace simulator
