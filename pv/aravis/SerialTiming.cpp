#include "pv/aravis/SerialTiming.h"

#include <algorithm>

namespace keocam {

namespace {

constexpr uint32_t kDefaultBaud = 57600;
constexpr uint64_t kSlowestBaud = 300;
constexpr uint64_t kFastestBaud = 12000000;
constexpr uint64_t kBitsPerCharacter = 11;  // start, eight data, parity or a second stop, stop
constexpr uint64_t kSilentCharacters = 4;
// Below this a device's own buffering, not the line, makes the gaps.
constexpr std::chrono::microseconds kShortestSilence_us(500);
constexpr std::chrono::microseconds kShortestPause_us(200);

}  // namespace

SerialTiming SerialTiming::forBaudRate(uint32_t baud) {
  const uint64_t bits_us = kSilentCharacters * kBitsPerCharacter * 1000000;
  const auto silence = std::chrono::microseconds(bits_us / std::max(baud, 1U));
  const auto silence_us = std::max(silence, kShortestSilence_us);
  return {silence_us, std::max(silence_us / 3, kShortestPause_us)};
}

uint32_t baudRateOf(const std::string& text) {
  uint64_t baud = 0;
  for (const char character : text) {
    if (character >= '0' && character <= '9') baud = baud * 10 + static_cast<uint64_t>(character - '0');
    if (baud > kFastestBaud) return kDefaultBaud;
  }
  return baud >= kSlowestBaud ? static_cast<uint32_t>(baud) : kDefaultBaud;
}

}  // namespace keocam
