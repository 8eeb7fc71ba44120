// The limit on frames of slow cameras: whose they are, and how far apart they are handed out.
#pragma once

#include <cstdint>
#include <string>

namespace keocam {

constexpr int64_t kSlowFramePeriod_ms = 100;

/// Whether Camera hands out the frames of a camera with this serial number no faster than that. Throws
/// std::out_of_range for one of fewer than 4 characters and std::invalid_argument for one without a number at
/// position 4.
inline bool isFrameRateLimited(const std::string& serial_number) {
  // Serial numbers up to this one belong to cameras made before there were speed classes.
  constexpr int kLastNumberWithoutClass = 1702;
  const int number = std::stoi(serial_number.substr(4, 7));
  return serial_number[3] == 'C' && number > kLastNumberWithoutClass;
}

}  // namespace keocam
