// Minimum, maximum and mean of raw pixel values, in counts.
#pragma once

#include <cstddef>
#include <cstdint>

namespace keocam::cli {

/// A value that can be added up over any number of frames: 2^48 pixels fit.
struct RawStatistics {
  uint64_t pixels = 0;
  uint64_t sum_counts = 0;
  uint16_t min_counts = UINT16_MAX;  ///< meaningful only with pixels > 0, like the rest
  uint16_t max_counts = 0;

  /// 0 without pixels.
  double mean_counts() const;
  void add(const RawStatistics& other);
};

/// `pixels` values of 16 bits, little endian, at `data`, which may be unaligned.
RawStatistics statisticsOfWords(const uint8_t* data, std::size_t pixels);

/// `pixels` values of 8 bits.
RawStatistics statisticsOfBytes(const uint8_t* data, std::size_t pixels);

}  // namespace keocam::cli
