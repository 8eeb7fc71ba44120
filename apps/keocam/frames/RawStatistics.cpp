#include "apps/keocam/frames/RawStatistics.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace keocam::cli {
namespace {

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "a pixel is read as the processor stores a number");

// Pixels handled side by side: a constant count lets the compiler turn the inner loops into vector instructions.
constexpr std::size_t kLanes = 32;

// Groups of lanes whose sums of 16-bit values fit 32 bits.
constexpr std::size_t kGroupsPerBlock = 65536;

template <typename Pixel>
using Lanes = std::array<Pixel, kLanes>;

template <typename Pixel>
RawStatistics statisticsOfBlock(const uint8_t* data, std::size_t groups) {
  Lanes<Pixel> low{};
  Lanes<Pixel> high{};
  Lanes<uint32_t> sum{};
  low.fill(static_cast<Pixel>(UINT16_MAX));
  for (std::size_t group = 0; group < groups; ++group) {
    Lanes<Pixel> value;
    std::memcpy(value.data(), data + group * sizeof value, sizeof value);
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      low[lane] = std::min(low[lane], value[lane]);
      high[lane] = std::max(high[lane], value[lane]);
      sum[lane] += value[lane];
    }
  }
  RawStatistics result;
  result.pixels = groups * kLanes;
  for (const uint32_t part : sum) result.sum_counts += part;
  result.min_counts = *std::min_element(low.begin(), low.end());
  result.max_counts = *std::max_element(high.begin(), high.end());
  return result;
}

template <typename Pixel>
RawStatistics statisticsOfRest(const uint8_t* data, std::size_t pixels) {
  RawStatistics result;
  for (std::size_t i = 0; i < pixels; ++i) {
    Pixel value;
    std::memcpy(&value, data + i * sizeof value, sizeof value);
    result.add({1, value, value, value});
  }
  return result;
}

template <typename Pixel>
RawStatistics statisticsOf(const uint8_t* data, std::size_t pixels) {
  RawStatistics result;
  while (pixels >= kLanes) {
    const std::size_t groups = std::min(pixels / kLanes, kGroupsPerBlock);
    result.add(statisticsOfBlock<Pixel>(data, groups));
    data += groups * kLanes * sizeof(Pixel);
    pixels -= groups * kLanes;
  }
  result.add(statisticsOfRest<Pixel>(data, pixels));
  return result;
}

}  // namespace

double RawStatistics::mean_counts() const {
  return pixels == 0 ? 0.0 : static_cast<double>(sum_counts) / static_cast<double>(pixels);
}

void RawStatistics::add(const RawStatistics& other) {
  if (other.pixels == 0) return;
  pixels += other.pixels;
  sum_counts += other.sum_counts;
  min_counts = std::min(min_counts, other.min_counts);
  max_counts = std::max(max_counts, other.max_counts);
}

RawStatistics statisticsOfWords(const uint8_t* data, std::size_t pixels) {
  return statisticsOf<uint16_t>(data, pixels);
}

RawStatistics statisticsOfBytes(const uint8_t* data, std::size_t pixels) { return statisticsOf<uint8_t>(data, pixels); }

}  // namespace keocam::cli
