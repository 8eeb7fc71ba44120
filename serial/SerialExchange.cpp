#include "serial/SerialExchange.h"

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

uint32_t SerialExchange::ready() {
  uint32_t count = 0;
  return port_.GetRxBytesReady(count).IsOK() ? count : 0;
}

bool SerialExchange::receive(ReplyBuffer& reply, uint32_t timeout_ms) {
  return port_.Read(reply.bytes.data(), static_cast<uint32_t>(reply.bytes.size()), reply.size, timeout_ms).IsOK();
}

bool SerialExchange::read(ReplyBuffer& reply, uint32_t timeout_ms) {
  // The count is of no use, but some devices move received bytes along only when asked.
  static_cast<void>(ready());
  return receive(reply, timeout_ms);
}

}  // namespace keocam
