// Hands stream packets to the network, many with one system call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "simulator/GvspPacket.h"
#include "simulator/Statistics.h"
#include "simulator/UdpSocket.h"

namespace simulator {

struct Destination {
  uint32_t ip = 0;  ///< host byte order
  uint16_t port = 0;
};

/// Thread-safe: it keeps nothing but the socket.
class PacketSender {
 public:
  PacketSender(const UdpSocket& socket, StatisticsBoard& statistics) : socket_(socket), statistics_(statistics) {}

  /// Sends the packets in order. What the network refuses is counted and lost, as on a wire.
  void send(const std::vector<StreamPacket>& packets, Destination destination) const;

  /// Sends one datagram of raw bytes; false when the network refuses it.
  bool sendRaw(const uint8_t* data, std::size_t size, Destination destination) const;

 private:
  const UdpSocket& socket_;
  StatisticsBoard& statistics_;
};

}  // namespace simulator
