// What a calibration says of its lenses, without the numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "calibration/CalibrationText.h"

namespace keocam::cli {

struct TableSummary {
  std::size_t size_bytes;
  std::optional<uint32_t> crc32;  ///< of the bytes, not of their digits; only if asked for
};

struct LensSummary {
  std::string name;  ///< as written, with the blanks that fill it up
  std::string date;
  unsigned int bb = 0;
  bool has_1500_range = false;
  TableSummary low{};
  TableSummary middle{};
  TableSummary high{};
};

enum class Checksums { None, Crc32 };

std::vector<LensSummary> summariesOf(const CalibrationLayout& layout, Checksums checksums);

/// The name for a person: without the blanks that fill it up, fit for a terminal.
std::string shownName(const std::string& name);

/// Names of the ranges: "low, middle" or "low, middle, high".
std::vector<std::string> rangesOf(const LensSummary& lens);
std::string rangesText(const LensSummary& lens);

/// CRC-32 as zlib, PNG and many tools have it.
uint32_t crc32Of(const void* data, std::size_t size);
/// Eight lower-case digits.
std::string crcText(uint32_t crc32);

}  // namespace keocam::cli
