// A serial line behind a device.
#pragma once

#include <cstdint>
#include <memory>

#include "PvDeviceAdapter.h"
#include "PvDeviceSerial.h"
#include "PvResult.h"

/// One connection to a bridged serial port. Not safe for concurrent use; closed by its destructor if need be.
class PvDeviceSerialPort {
 public:
  PvDeviceSerialPort();
  virtual ~PvDeviceSerialPort();
  PvDeviceSerialPort(const PvDeviceSerialPort&) = delete;
  PvDeviceSerialPort& operator=(const PvDeviceSerialPort&) = delete;

  /// Opens `port` of the adapter's device. The adapter must outlive the connection. NotFound if the device bridges no
  /// such port, NotConnected if it is gone.
  PvResult Open(PvDeviceAdapter* adapter, PvDeviceSerial port);
  PvResult Close();

  /// Sends `size` bytes; `bytesWritten` tells how many the device took.
  PvResult Write(const uint8_t* data, uint32_t size, uint32_t& bytesWritten);
  /// How many received bytes wait to be read.
  PvResult GetRxBytesReady(uint32_t& bytesReady);
  /// Waits up to `timeout_ms` milliseconds for bytes, then returns what has come, at most `size`, as soon as the line
  /// has been silent for a few characters. Timeout, with `bytesRead` 0, if none came.
  PvResult Read(uint8_t* data, uint32_t size, uint32_t& bytesRead, uint32_t timeout_ms);

 private:
  friend struct PvLayer;
  struct State;
  std::unique_ptr<State> state_;
};
