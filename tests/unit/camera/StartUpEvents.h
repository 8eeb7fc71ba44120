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

/// What follows "Setting radiometry", to the end, with debug messages. Until then an emissivity of 0.8, 300 K of the
/// atmosphere and 310 K of what is reflected were in force.
inline Events radiometricStartUpEvents() {
  return joined({
      // The mode tells the core the object parameters in force until now, and the resolution; the latter is set again.
      writeEvents(142, {0x00, 0x40, 0x00, 0x01}),
      writeEvents(229, {0x01, 0x00, 0x19, 0x99}),  // emissivity of 0.8
      writeEvents(229, {0x01, 0x07, 0x0E, 0x10}),  // reflected, whole degrees: 36
      writeEvents(229, {0x01, 0x05, 0x0A, 0x7D}),  // atmospheric: 26.85
      writeEvents(142, {0x00, 0x10, 0x00, 0x01}),
      writeEvents(142, {0x00, 0x10, 0x00, 0x01}),
      // The defaults, which a core in that mode is told at once. The humidity is the model's alone.
      {startUpLine(
          "Setting default values for emissivity, atmosferic temperature, reflected temperature and humidity")},
      writeEvents(229, {0x01, 0x00, 0x1E, 0x66}),
      writeEvents(229, {0x01, 0x05, 0x07, 0xD0}),
      writeEvents(229, {0x01, 0x07, 0x07, 0xD0}),
      {startUpLine("Setting FFC mode to AUTO")},
      writeEvents(11, {0x00, 0x01}),
      {startUpLine("Setting XP BUS mode to CMOS")},
      writeEvents(18, {0x03, 0x02}),
      // The depth is that of the bus' CMOS mode.
      {startUpLine("Setting digital depth to 14bit")},
      writeEvents(18, {0x06, 0x00}),
      // The gain settles for a second before the correction.
      {startUpLine("Setting Range mode to low ")},
      writeEvents(10, {0x00, 0x02}),
      {"sleep 1 s"},
      writeEvents(12),
      writeEvents(142, {0x00, 0x10, 0x00, 0x01}),
      {"sleep 1 s", "sleep 1 s"},
      // The last correction is for all that has been set.
      {startUpLine("Doing FFC")},
      readEvents(32, {0x00, 0x00}),
      writeEvents(12),
  });
}
