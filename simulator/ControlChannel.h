// The thread that receives commands and sends their answers, and lets time pass for the device.
#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <mutex>
#include <thread>

#include "simulator/Device.h"
#include "simulator/Faults.h"
#include "simulator/GvcpServer.h"
#include "simulator/UdpSocket.h"

namespace simulator {

class ControlChannel {
 public:
  /// `device_mutex` is held around every use of the device. Throws std::runtime_error where a socket cannot be bound.
  ControlChannel(const InterfaceAddress& own, Device& device, std::mutex& device_mutex, Faults& faults,
                 StatisticsBoard& statistics);
  ~ControlChannel();
  ControlChannel(const ControlChannel&) = delete;
  ControlChannel& operator=(const ControlChannel&) = delete;

 private:
  struct DeferredAck {
    uint64_t due_ns;
    Peer peer;
    uint16_t request_id;
    Bytes ack;
  };
  enum class Source { Own, Broadcast };

  void run();
  void receive(const UdpSocket& socket, Source source);
  void handle(const uint8_t* datagram, std::size_t size, const Peer& peer, Source source);
  void answer(const GvcpAnswer& answer, const Peer& peer, const FaultSettings& faults);
  bool isDeferred(const Peer& peer, uint16_t request_id) const;
  void sendDueAcks();
  void noticeVanishing();
  int pollTimeoutMs();
  void send(const Bytes& packet, const Peer& peer) const;

  InterfaceAddress own_;
  Device& device_;
  std::mutex& device_mutex_;
  Faults& faults_;
  StatisticsBoard& statistics_;
  GvcpServer server_;
  UdpSocket control_;
  UdpSocket broadcast_;
  std::deque<DeferredAck> deferred_;
  bool was_vanished_ = false;
  int wake_fd_;
  std::thread thread_;
};

}  // namespace simulator
