// Counters of what a simulated camera has received, answered and sent.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace simulator {

enum class Counter : std::size_t {
  Discovery,          ///< discovery commands answered
  ForceIp,            ///< FORCEIP commands meant for this camera
  ReadRegister,       ///< READREG commands, however they were answered
  WriteRegister,      ///< WRITEREG commands
  ReadMemory,         ///< READMEM commands
  WriteMemory,        ///< WRITEMEM commands
  PacketResend,       ///< PACKETRESEND commands
  UnknownCommand,     ///< well-formed commands that the camera does not know
  Malformed,          ///< datagrams that are no GVCP command, or whose length is wrong
  Nack,               ///< answers with an error status
  Replay,             ///< repeated writes answered from memory and not executed again
  PendingAck,         ///< PENDING_ACK messages
  Heartbeat,          ///< reads of the control privilege by its owner
  ControlTaken,       ///< control given to a host
  ControlExpired,     ///< control lost because the heartbeat timer ran out
  IgnoredCommand,     ///< commands that a fault made the camera ignore
  LostAck,            ///< answers that a fault swallowed after the command was executed
  Frame,              ///< frames sent
  StreamPacket,       ///< stream packets handed to the network, resent ones included
  ResentPacket,       ///< stream packets sent again on request
  ResendUnavailable,  ///< resend requests answered "no longer available"
  DroppedPacket,      ///< stream packets that a fault lost, leaders and trailers included
  LatePacket,         ///< stream packets that a fault held back
  DuplicatedPacket,   ///< stream packets that a fault sent twice
  ReorderedPacket,    ///< stream packets that a fault sent after their successor
  ShortPacket,        ///< stream packets that a fault truncated
  TestPacket,         ///< test packets sent
  SendError,          ///< stream packets that the network refused, such as those above the path's MTU
  UartFromHost,       ///< bytes the host wrote to the serial port
  UartToHost,         ///< bytes the host read from the serial port
  UartOverflow,       ///< bytes lost because the receive queue was full
  Count
};

constexpr std::size_t kCounterCount = static_cast<std::size_t>(Counter::Count);

/// The counter's name as `status` prints it, such as "resent-packets".
std::string_view counterName(Counter counter);

/// The counters at one moment.
class Statistics {
 public:
  uint64_t operator[](Counter counter) const { return values_[static_cast<std::size_t>(counter)]; }

 private:
  friend class StatisticsBoard;
  std::array<uint64_t, kCounterCount> values_{};
};

/// The live counters. Every member may be called from any thread.
class StatisticsBoard {
 public:
  void add(Counter counter, uint64_t amount = 1) {
    values_[static_cast<std::size_t>(counter)].fetch_add(amount, std::memory_order_relaxed);
  }

  uint64_t operator[](Counter counter) const {
    return values_[static_cast<std::size_t>(counter)].load(std::memory_order_relaxed);
  }

  Statistics snapshot() const;

 private:
  std::array<std::atomic<uint64_t>, kCounterCount> values_{};
};

}  // namespace simulator
