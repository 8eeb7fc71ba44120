// A bridged serial port as an application sees it.
#include "PvDeviceSerialPort.h"

#include <utility>

#include "pv/aravis/Error.h"
#include "pv/aravis/PvLayer.h"
#include "pv/aravis/SerialConnection.h"

namespace {

using Code = PvResult::Code;

struct PortName {
  PvDeviceSerial port;
  const char* name;
};

constexpr PortName kPortNames[] = {
    {PvDeviceSerial0, "Serial0"},
    {PvDeviceSerial1, "Serial1"},
    {PvDeviceSerialBulk0, "Bulk0"},
};

PvResult notOpen() { return keocam::failure(Code::InvalidParameter, "The serial port is not open; open it first."); }

}  // namespace

struct PvDeviceSerialPort::State {
  std::unique_ptr<keocam::SerialConnection> connection;
};

PvDeviceSerialPort::PvDeviceSerialPort() : state_(std::make_unique<State>()) {}

PvDeviceSerialPort::~PvDeviceSerialPort() { static_cast<void>(Close()); }

PvResult PvDeviceSerialPort::Open(PvDeviceAdapter* adapter, PvDeviceSerial port) {
  if (state_->connection) return keocam::failure(Code::InvalidParameter, "The serial port is open already.");
  if (adapter == nullptr || !PvLayer::link(*adapter)) {
    return keocam::failure(Code::InvalidParameter, "There is no device to open a serial port of.");
  }
  for (const PortName& row : kPortNames) {
    if (row.port != port) continue;
    PvResult result;
    state_->connection = keocam::SerialConnection::open(PvLayer::link(*adapter), row.name, result);
    return result;
  }
  return keocam::failure(Code::InvalidParameter,
                         "There is no serial port with the number " + std::to_string(static_cast<int>(port)) + ".");
}

PvResult PvDeviceSerialPort::Close() {
  const auto connection = std::exchange(state_->connection, nullptr);
  return connection ? connection->close() : notOpen();
}

PvResult PvDeviceSerialPort::Write(const uint8_t* data, uint32_t size, uint32_t& bytesWritten) {
  bytesWritten = 0;
  if (!state_->connection) return notOpen();
  if (data == nullptr && size > 0) return keocam::failure(Code::InvalidParameter, "There are no bytes to write.");
  return state_->connection->write(data, size, bytesWritten);
}

PvResult PvDeviceSerialPort::GetRxBytesReady(uint32_t& bytesReady) {
  bytesReady = 0;
  return state_->connection ? state_->connection->waiting(bytesReady) : notOpen();
}

PvResult PvDeviceSerialPort::Read(uint8_t* data, uint32_t size, uint32_t& bytesRead, uint32_t timeout_ms) {
  bytesRead = 0;
  if (!state_->connection) return notOpen();
  if (data == nullptr && size > 0) return keocam::failure(Code::InvalidParameter, "There is nowhere to put the bytes.");
  return state_->connection->read(data, size, bytesRead, std::chrono::milliseconds(timeout_ms));
}
