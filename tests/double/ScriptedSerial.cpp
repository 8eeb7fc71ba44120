// PvDeviceAdapter and PvDeviceSerialPort after the script.
#include <algorithm>

#include "PvDeviceAdapter.h"
#include "PvDeviceSerialPort.h"
#include "tests/double/Hex.h"
#include "tests/double/ScriptedLayer.h"

using scripted::eventLog;
using scripted::network;

namespace {

PvResult outcome(bool success, PvResult::Code failure) {
  return success ? PvResult() : PvResult(failure, "the script says so");
}

std::string nameOf(const PvDevice* device) { return device != nullptr ? PvLayer::nameOf(*device) : "no device"; }

}  // namespace

struct PvDeviceAdapter::State {
  scripted::LiveObject live{"PvDeviceAdapter"};
  PvDevice* device;
};

const PvDevice* PvLayer::deviceOf(const PvDeviceAdapter& adapter) { return adapter.state_->device; }

PvDeviceAdapter::PvDeviceAdapter(PvDevice* device) : state_(new State) {
  state_->device = device;
  eventLog().add("PvDeviceAdapter::PvDeviceAdapter " + nameOf(device));
}
PvDeviceAdapter::~PvDeviceAdapter() { eventLog().add("PvDeviceAdapter::~PvDeviceAdapter"); }

struct PvDeviceSerialPort::State {
  scripted::LiveObject live{"PvDeviceSerialPort"};
};

PvDeviceSerialPort::PvDeviceSerialPort() : state_(std::make_unique<State>()) {}
PvDeviceSerialPort::~PvDeviceSerialPort() { eventLog().add("PvDeviceSerialPort::~PvDeviceSerialPort"); }

PvResult PvDeviceSerialPort::Open(PvDeviceAdapter* adapter, PvDeviceSerial port) {
  const PvDevice* const device = adapter != nullptr ? PvLayer::deviceOf(*adapter) : nullptr;
  eventLog().add("PvDeviceSerialPort::Open " + std::to_string(port) + " of " + nameOf(device));
  return outcome(network().serial.opens, PvResult::Code::NotConnected);
}

PvResult PvDeviceSerialPort::Close() {
  eventLog().add("PvDeviceSerialPort::Close");
  return {};
}

PvResult PvDeviceSerialPort::Write(const uint8_t* data, uint32_t size, uint32_t& bytesWritten) {
  eventLog().add("PvDeviceSerialPort::Write " + scripted::hex(data, size));
  scripted::Serial& serial = network().serial;
  if (serial.on_write) serial.on_write();
  const bool taken = serial.takes_writes && serial.writes_taken != 0;
  if (serial.writes_taken > 0) --serial.writes_taken;
  bytesWritten = taken ? size : 0;
  return outcome(taken, PvResult::Code::NotConnected);
}

PvResult PvDeviceSerialPort::GetRxBytesReady(uint32_t& bytesReady) {
  eventLog().add("PvDeviceSerialPort::GetRxBytesReady");
  bytesReady = 0;
  std::deque<uint32_t>& ready = network().serial.ready;
  if (ready.empty()) return outcome(false, PvResult::Code::GenericError);
  bytesReady = ready.front();
  ready.pop_front();
  return {};
}

PvResult PvDeviceSerialPort::Read(uint8_t* data, uint32_t size, uint32_t& bytesRead, uint32_t timeout_ms) {
  eventLog().add("PvDeviceSerialPort::Read " + std::to_string(size) + " " + std::to_string(timeout_ms));
  scripted::Serial& serial = network().serial;
  const bool answered = !serial.replies.empty();
  const std::vector<uint8_t> received = answered ? serial.replies.front() : serial.before_time_out;
  if (answered) serial.replies.pop_front();
  bytesRead = std::min(size, static_cast<uint32_t>(received.size()));
  std::copy_n(received.begin(), bytesRead, data);
  return outcome(answered, PvResult::Code::Timeout);
}
