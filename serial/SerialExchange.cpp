#include "serial/SerialExchange.h"

#include <algorithm>

namespace keocam {

SerialExchange::SerialExchange(PvDevice* device, PvDeviceSerial port)
    : adapter_(device), opened_(port_.Open(&adapter_, port).IsOK()) {}

SerialExchange::~SerialExchange() {
  if (close_) static_cast<void>(port_.Close());
}

bool SerialExchange::write(const uint8_t* data, std::size_t size) {
  uint32_t written = 0;
  return port_.Write(data, static_cast<uint32_t>(size), written).IsOK();
}

void SerialExchange::discardReceived() {
  // The line is silent when nobody asks the core anything, so that one reading empties it.
  ReplyBuffer late;
  if (ready() > 0) static_cast<void>(receive(late, 0));
}

uint32_t SerialExchange::ready() {
  uint32_t count = 0;
  return port_.GetRxBytesReady(count).IsOK() ? count : 0;
}

bool SerialExchange::receive(ReplyBuffer& reply, uint32_t timeout_ms, std::size_t most_bytes) {
  const std::size_t size = std::min(most_bytes, reply.bytes.size());
  return port_.Read(reply.bytes.data(), static_cast<uint32_t>(size), reply.size, timeout_ms).IsOK();
}

bool SerialExchange::read(ReplyBuffer& reply, uint32_t timeout_ms, std::size_t most_bytes) {
  // The count is of no use, but some devices move received bytes along only when asked.
  static_cast<void>(ready());
  return receive(reply, timeout_ms, most_bytes);
}

}  // namespace keocam
