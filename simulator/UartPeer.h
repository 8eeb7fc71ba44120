// The seam behind the serial bridge: what is soldered to the other end of the camera's UART.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace simulator {

enum class UartParity : uint32_t { None = 0, Odd = 1, Even = 2 };

/// How characters travel: a start bit, eight data bits, an optional parity bit and the stop bits.
struct UartLine {
  uint32_t baud = 57600;
  uint32_t stop_bits = 1;
  UartParity parity = UartParity::None;
};

inline bool operator==(const UartLine& a, const UartLine& b) {
  return a.baud == b.baud && a.stop_bits == b.stop_bits && a.parity == b.parity;
}

/// Bytes from the peer to the host, and how long after the end of what caused them they start.
struct UartReply {
  std::vector<uint8_t> bytes;
  uint64_t delay_ns = 0;
};

/// A device at the other end of the UART, such as a thermal core.
class UartPeer {
 public:
  virtual ~UartPeer() = default;

  /// Called when `size` bytes have arrived in full at the peer, sent with the line settings `line`; a peer that is set
  /// up for another line would see garbage. Returns what it sends back. Called with the camera's lock held, from
  /// one thread at a time: return promptly and call nothing of the camera.
  virtual UartReply receive(const uint8_t* data, std::size_t size, const UartLine& line) = 0;
};

}  // namespace simulator
