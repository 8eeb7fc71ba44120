// The control protocol's server: one datagram in, its answer out. Knows commands, no sockets.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>

#include "simulator/Bytes.h"
#include "simulator/Device.h"
#include "simulator/GvcpPacket.h"
#include "simulator/Statistics.h"

namespace simulator {

/// What is sent back, and what kind of request it was for.
struct GvcpAnswer {
  Bytes ack;  ///< empty: no answer
  uint16_t request_id = 0;
  bool is_write = false;  ///< of registers or memory, by a request that is well formed
};

class GvcpServer {
 public:
  GvcpServer(Device& device, StatisticsBoard& statistics) : device_(device), statistics_(statistics) {}

  /// Executes one datagram that was sent to the camera's own address. A host's write that is repeated byte for byte
  /// under the same request id gets the first answer again and is not executed twice.
  /// `keeps_control` false: the command does not count as a sign of life of the controlling host.
  GvcpAnswer handle(const uint8_t* datagram, std::size_t size, const Peer& peer, uint64_t now_ns,
                    bool keeps_control = true);

  /// The same for datagrams that were broadcast: only discovery and FORCEIP are answered.
  GvcpAnswer handleBroadcast(const uint8_t* datagram, std::size_t size, uint64_t now_ns);

  /// Forgets the answers kept for repeated requests, as a restart does.
  void reset() { answered_.clear(); }

 private:
  struct Reply {
    Status status;
    Bytes payload;
  };
  struct AnsweredWrite {
    Peer peer;
    Bytes datagram;
    Bytes ack;
  };
  Reply execute(const GvcpRequest& request, const Peer& peer, uint64_t now_ns);
  Reply readRegisters(const GvcpRequest& request, const Peer& peer, uint64_t now_ns);
  Reply writeRegisters(const GvcpRequest& request, const Peer& peer, uint64_t now_ns);
  Reply readMemory(const GvcpRequest& request, const Peer& peer, uint64_t now_ns);
  Reply writeMemory(const GvcpRequest& request, const Peer& peer, uint64_t now_ns);
  Reply resend(const GvcpRequest& request, const Peer& peer);
  const AnsweredWrite* findAnswered(const uint8_t* datagram, std::size_t size, const Peer& peer) const;
  void remember(const uint8_t* datagram, std::size_t size, const Peer& peer, const Bytes& ack);
  GvcpAnswer answer(const GvcpRequest& request, const Reply& reply);

  Device& device_;
  StatisticsBoard& statistics_;
  std::deque<AnsweredWrite> answered_;  ///< the last write of each of the last few hosts
};

}  // namespace simulator
