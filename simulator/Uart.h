// The UART behind the serial bridge: bytes take the time that the line's baud rate gives them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>

#include "simulator/Bytes.h"
#include "simulator/Statistics.h"
#include "simulator/UartPeer.h"

namespace simulator {

/// Time of one character: start bit, eight data bits, parity and stop bits.
uint64_t characterTimeNs(const UartLine& line);

/// Time is an argument of every call that needs it and must not run backwards.
class Uart {
 public:
  /// Bytes that can wait for the host, or be under way to the peer; more are lost or refused.
  static constexpr std::size_t kQueueBytes = std::size_t{64} * 1024;

  /// Without `pacing` bytes take no time. `peer` may be null.
  Uart(std::shared_ptr<UartPeer> peer, bool pacing, StatisticsBoard& statistics);

  /// How bytes written from now on travel.
  void configure(const UartLine& line, bool enabled, bool loopback);

  /// Queues bytes for the line; returns how many fitted.
  std::size_t write(const uint8_t* data, std::size_t size, uint64_t now_ns);

  /// Takes at most `size` bytes that have arrived.
  Bytes read(std::size_t size, uint64_t now_ns);

  /// Bytes that have arrived and were not read.
  std::size_t waiting(uint64_t now_ns);

  /// Forgets what has arrived; what is under way still arrives.
  void discardReceived(uint64_t now_ns);

  /// Lets everything happen that is due by `now_ns`.
  void advance(uint64_t now_ns);

  /// When the peer is next to be handed bytes, or kNever.
  uint64_t nextDeliveryNs() const;

 private:
  struct Outgoing {
    Bytes bytes;  ///< empty where no peer is to have them
    std::size_t size;
    UartLine line;
    uint64_t done_ns;
  };
  struct Incoming {
    Bytes bytes;
    std::size_t arrived;
    uint64_t start_ns;
    uint64_t character_ns;
  };
  uint64_t paced(const UartLine& line) const;
  void receiveLater(Bytes bytes, uint64_t start_ns, uint64_t character_ns);

  std::shared_ptr<UartPeer> peer_;
  bool pacing_;
  StatisticsBoard& statistics_;
  UartLine line_;
  bool enabled_ = true;
  bool loopback_ = false;
  std::deque<Outgoing> outgoing_;
  std::size_t outgoing_bytes_ = 0;
  uint64_t transmitter_free_ns_ = 0;
  std::deque<Incoming> incoming_;
  uint64_t receiver_free_ns_ = 0;
  std::deque<uint8_t> received_;
};

}  // namespace simulator
