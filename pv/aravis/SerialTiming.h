// How long a serial line must be silent for a message to be over, and how often to look.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace keocam {

struct SerialTiming {
  std::chrono::microseconds silence_us;  ///< after it nothing more is expected
  std::chrono::microseconds pause_us;    ///< between two looks while bytes come

  /// Pure.
  static SerialTiming forBaudRate(uint32_t baud);
};

/// The number in text such as "Baud57600"; 57600 if there is none that a line can have.
uint32_t baudRateOf(const std::string& text);

}  // namespace keocam
