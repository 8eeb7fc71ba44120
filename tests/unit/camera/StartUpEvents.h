// What the log has of a core's start-up, for tests to join to what they expect.
#pragma once

#include <string>
#include <vector>

#include "tests/unit/camera/AnsweringCore.h"

using Events = std::vector<std::string>;

inline Events joined(const std::vector<Events>& pieces) {
  Events all;
  for (const Events& piece : pieces) all.insert(all.end(), piece.begin(), piece.end());
  return all;
}

inline std::string startUpLine(const std::string& message, const char* stream = "out") {
  return std::string(stream) + ": CameraSerialSettings::SetDefault(): " + message + "\\n";
}

/// The device's features, up to where the core is first spoken to.
inline Events featureEvents() {
  return {
      "PvDevice::GetParameters",
      "PvGenParameterArray::SetEnumValue PixelFormat Mono14",
      "PvGenParameterArray::SetEnumValue TestPattern Off",
      "PvGenParameterArray::SetEnumValue BulkSelector Bulk0",
      "PvGenParameterArray::SetEnumValue BulkMode UART",
      "PvGenParameterArray::SetEnumValue BulkBaudRate Baud57600",
      "PvGenParameterArray::SetEnumValue BulkNumOfStopBits One",
      "PvGenParameterArray::SetEnumValue BulkParity None",
      "PvGenParameterArray::SetBooleanValue BulkLoopback false",
  };
}

/// A setting that got no answer.
inline Events unansweredWriteEvents(uint8_t code) {
  return joined(
      {writeEvents(code), {"err: CameraSerialSettings::SetParameter: Error reading message from camera.\\n"}});
}
