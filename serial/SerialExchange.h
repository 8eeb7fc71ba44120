// One connection to the thermal core, for one exchange: nothing stays open between exchanges.
#pragma once

#include <cstddef>
#include <cstdint>

#include "PvDeviceAdapter.h"
#include "PvDeviceSerialPort.h"
#include "serial/Frame.h"

namespace keocam {

/// Adapter and port, made and opened by the constructor. The destructor closes the port and destroys both, the port
/// first, since it may refer to the adapter. A port that did not open is closed all the same, unless abandoned.
class SerialExchange {
 public:
  /// `device` is not owned and must outlive this object.
  SerialExchange(PvDevice* device, PvDeviceSerial port);
  ~SerialExchange();
  SerialExchange(const SerialExchange&) = delete;
  SerialExchange& operator=(const SerialExchange&) = delete;

  bool opened() const { return opened_; }

  /// The destructor is not to close the port.
  void abandon() { close_ = false; }

  /// False if the device did not take the bytes.
  bool write(const uint8_t* data, std::size_t size);

  /// Throws away what has come, such as an answer that was late.
  void discardReceived();

  /// How many bytes have come; 0 as well if the device does not say.
  uint32_t ready();

  /// Waits up to `timeout_ms` milliseconds for an answer. False if none came. It is over when the line falls silent,
  /// or, sooner, after `most_bytes`.
  bool receive(ReplyBuffer& reply, uint32_t timeout_ms, std::size_t most_bytes = kReplyRoom_bytes);

  /// Asks how many bytes have come, then waits for an answer.
  bool read(ReplyBuffer& reply, uint32_t timeout_ms, std::size_t most_bytes = kReplyRoom_bytes);

 private:
  PvDeviceAdapter adapter_;
  PvDeviceSerialPort port_;
  bool opened_;
  bool close_ = true;
};

}  // namespace keocam
