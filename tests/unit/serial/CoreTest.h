// A thermal core that exists only as a script: its replies are queued, and what it was sent is in the log.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "PvDevice.h"
#include "serial/CameraSerialSettings.h"
#include "tests/double/Hex.h"
#include "tests/double/ScriptedLayer.h"
#include "tests/unit/ScriptedTest.h"

/// Frames as the protocol has them, with a checksum of their own making.
namespace core_frames {

using Bytes = std::vector<uint8_t>;

inline void appendCrc(Bytes& bytes) {
  unsigned int crc = 0;
  for (const uint8_t byte : bytes) {
    for (unsigned int mask = 0x80; mask != 0; mask >>= 1) {
      const bool carry = ((crc & 0x8000) != 0) != ((byte & mask) != 0);
      crc = (crc << 1 & 0xFFFF) ^ (carry ? 0x1021U : 0U);
    }
  }
  bytes.push_back(static_cast<uint8_t>(crc >> 8));
  bytes.push_back(static_cast<uint8_t>(crc & 0xFF));
}

inline Bytes frame(uint8_t code, const Bytes& payload, uint8_t status = 0) {
  Bytes bytes = {
      0x6E, status, 0x00, code, static_cast<uint8_t>(payload.size() >> 8), static_cast<uint8_t>(payload.size() & 0xFF)};
  appendCrc(bytes);
  bytes.insert(bytes.end(), payload.begin(), payload.end());
  appendCrc(bytes);
  return bytes;
}

}  // namespace core_frames

class CoreTest : public ScriptedTest {
 protected:
  using Bytes = core_frames::Bytes;

  static constexpr PvDeviceSerial kPort = PvDeviceSerialBulk0;

  void TearDown() override {
    EXPECT_EQ(scripted::liveObjects("PvDeviceAdapter"), 0);
    EXPECT_EQ(scripted::liveObjects("PvDeviceSerialPort"), 0);
  }

  static void reply(const Bytes& bytes) { scripted::network().serial.replies.push_back(bytes); }
  static void replyTo(uint8_t code, const Bytes& payload, uint8_t status = 0) {
    reply(core_frames::frame(code, payload, status));
  }

  /// The requests since the last call, in hexadecimal; forgets all other events.
  static Log takeRequests() {
    const std::string call = "PvDeviceSerialPort::Write ";
    Log requests = take({call});
    for (std::string& request : requests) request.erase(0, call.size());
    return requests;
  }
  static Log requests(const std::vector<std::pair<uint8_t, Bytes>>& frames) {
    Log texts;
    for (const auto& [code, payload] : frames) texts.push_back(scripted::hex(core_frames::frame(code, payload)));
    return texts;
  }

  std::shared_ptr<scripted::Device> scripted_device_ = makeDevice("ABCD1000");
  std::unique_ptr<PvDevice> device_{PvLayer::makeDevice(*scripted_device_)};
  CameraSerialSettings core_{device_.get(), kPort};
};
