// A host with plain sockets of its own: asks a camera on loopback and receives its stream.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "GvcpMessages.h"

/// A UDP socket on 127.0.0.1 with time-outs in milliseconds.
class HostSocket {
 public:
  explicit HostSocket(int receive_buffer_bytes = 0);
  ~HostSocket();
  HostSocket(const HostSocket&) = delete;
  HostSocket& operator=(const HostSocket&) = delete;

  uint16_t port() const;
  void sendTo(const std::string& ip, const gvcp::Bytes& datagram, uint16_t port = 3956) const;
  /// Empty when nothing comes in time. `from` receives the sender's port.
  gvcp::Bytes receive(int timeout_ms, uint16_t* from = nullptr) const;

 private:
  int fd_;
};

/// One frame as it came in.
struct ReceivedFrame {
  uint16_t block_id = 0;
  uint64_t timestamp_ns = 0;
  uint32_t width = 0;
  uint32_t height = 0;
  std::map<uint32_t, gvcp::Bytes> payload;  ///< by packet id
  bool leader = false;
  bool trailer = false;
  uint32_t trailer_id = 0;

  bool complete() const { return leader && trailer && payload.size() + 1 == trailer_id; }
  std::vector<uint16_t> pixels() const;
};

/// A controlling host: one control socket, one stream socket.
class TestHost {
 public:
  explicit TestHost(std::string camera_ip);

  gvcp::Answer ask(const gvcp::Bytes& datagram, int timeout_ms = 1000) const;
  /// 0xFFFF when no answer comes.
  uint16_t write(uint32_t address, uint32_t value);
  std::optional<uint32_t> read(uint32_t address, int timeout_ms = 1000);
  bool takeControl();
  /// Opens the stream to this host's stream socket with packets of this size, and starts.
  bool startStream(uint32_t packet_size_bytes = 8000);

  /// The next frame that is complete, in whatever order its packets come, or the next that another follows although it
  /// is not; empty after a silence of `timeout_ms`.
  std::optional<ReceivedFrame> nextFrame(int timeout_ms = 5000);
  /// Adds a stream packet to the frames under way.
  void take(const gvcp::Bytes& packet);

  uint16_t nextId() { return ++id_ == 0 ? ++id_ : id_; }

  HostSocket control;
  HostSocket stream;
  std::string camera_ip;
  std::map<uint16_t, ReceivedFrame> frames;

 private:
  uint16_t id_ = 0;
};
