// Whose tables a core holds, by samples of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "calibration/CalibrationStruct.h"

namespace keocam::cli {

/// Four samples of one of the core's tables: at its beginning and after each quarter.
struct HeldTable {
  static constexpr uint32_t kSamples = 4;
  static constexpr uint32_t kSample_bytes = 128;

  uint32_t size_bytes = 0;
  std::array<std::array<uint8_t, kSample_bytes>, kSamples> samples{};  ///< zeros beyond the table

  static constexpr uint32_t offsetOf(uint32_t sample, uint32_t size_bytes) { return sample * (size_bytes / kSamples); }
  /// The bytes of a sample that lie in the table: all but of the smallest tables.
  static constexpr uint32_t bytesOf(uint32_t sample, uint32_t size_bytes) {
    const uint32_t rest_bytes = size_bytes - offsetOf(sample, size_bytes);
    return rest_bytes < kSample_bytes ? rest_bytes : kSample_bytes;
  }
};

/// The core's two tables, by the range that they are for.
struct HeldTables {
  HeldTable low;
  HeldTable middle;
};

/// Indices of lenses.
struct HeldLens {
  std::optional<std::size_t> lens;    ///< the first lens whose tables both are
  std::optional<std::size_t> low;     ///< the first lens whose table for the low range it is
  std::optional<std::size_t> middle;  ///< the same for the middle range
};

/// A lens without tables, or with tables of another size than the core's, is never the one.
HeldLens heldLens(const HeldTables& held, const std::vector<CalibrationStruct>& lenses);

/// Whether the samples show nothing but erased memory.
bool isErased(const HeldTable& table);

}  // namespace keocam::cli
