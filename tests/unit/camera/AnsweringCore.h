// A thermal core that answers every request, and the events of an exchange with it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/double/EventLog.h"
#include "tests/double/ScriptedNetwork.h"
#include "tests/unit/serial/CoreTest.h"

/// At the other end of the double's serial port from construction on, until the network is started afresh. The reply is
/// a word of 0 but to the question for the part number.
class AnsweringCore {
 public:
  AnsweringCore() {
    scripted::network().serial.on_write = [this] { answer(); };
  }
  ~AnsweringCore() { scripted::network().serial.on_write = nullptr; }
  AnsweringCore(const AnsweringCore&) = delete;
  AnsweringCore& operator=(const AnsweringCore&) = delete;

  std::string part_number = "46640001X-FRNLX";  ///< filled up with '^'
  int unheard = 0;                              ///< so many requests, from the next one on, get no reply
  std::map<uint8_t, uint8_t> statuses;          ///< by function code; CAM_OK for the rest

 private:
  static constexpr uint8_t kPartNumber = 102;
  static constexpr std::size_t kPartNumberBytes = 32;

  void answer() {
    if (unheard > 0) {
      --unheard;
      return;
    }
    // The event is the call and the request in hexadecimal; its fourth byte is the function code.
    constexpr std::size_t kBeforeCode = 1 + 9;
    const std::string& event = scripted::eventLog().all().back();
    const auto code = static_cast<uint8_t>(std::stoi(event.substr(event.find(' ') + kBeforeCode, 2), nullptr, 16));
    core_frames::Bytes payload = {0, 0};
    if (code == kPartNumber) {
      payload.assign(part_number.begin(), part_number.end());
      payload.resize(kPartNumberBytes, '^');
    }
    const auto status = statuses.find(code);
    scripted::network().serial.replies.push_back(
        core_frames::frame(code, payload, status != statuses.end() ? status->second : uint8_t{0}));
  }
};

/// What the log has of one exchange with the core of "Cam A".
inline std::vector<std::string> exchangeEvents(uint8_t code, const core_frames::Bytes& payload, bool is_read) {
  std::vector<std::string> events = {"PvDeviceAdapter::PvDeviceAdapter Cam A", "PvDeviceSerialPort::Open 2 of Cam A",
                                     "PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(code, payload))};
  if (is_read) events.insert(events.end(), {"usleep 1000 us", "usleep 10000 us"});
  events.insert(events.end(), {"PvDeviceSerialPort::GetRxBytesReady",
                               is_read ? "PvDeviceSerialPort::Read 1024 100" : "PvDeviceSerialPort::Read 1024 500",
                               "PvDeviceSerialPort::Close", "PvDeviceSerialPort::~PvDeviceSerialPort",
                               "PvDeviceAdapter::~PvDeviceAdapter"});
  return events;
}
inline std::vector<std::string> readEvents(uint8_t code, const core_frames::Bytes& payload = {}) {
  return exchangeEvents(code, payload, true);
}
inline std::vector<std::string> writeEvents(uint8_t code, const core_frames::Bytes& payload = {}) {
  return exchangeEvents(code, payload, false);
}
