// A UDP socket over IPv4 that closes itself.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace keocam {

/// Every operation tells by its result whether it worked; none throws, none raises a signal.
class UdpSocket {
 public:
  UdpSocket() = default;
  ~UdpSocket();
  UdpSocket(UdpSocket&& other) noexcept;
  UdpSocket& operator=(UdpSocket&& other) noexcept;
  UdpSocket(const UdpSocket&) = delete;
  UdpSocket& operator=(const UdpSocket&) = delete;

  bool open();
  /// Sends through the interface called `name` whatever the routes say. False where the system does not permit it.
  bool bindToInterface(const std::string& name);
  /// Binds to a local address; port 0 lets the system choose.
  bool bindTo(uint32_t address, uint16_t port);
  /// Sends to and receives from this peer alone.
  bool connectTo(uint32_t address, uint16_t port);

  bool send(const uint8_t* data, std::size_t size) const;
  /// Waits until `deadline` for a datagram and returns its length before any cut to `capacity`; empty if none came.
  std::optional<std::size_t> receive(uint8_t* data, std::size_t capacity,
                                     std::chrono::steady_clock::time_point deadline) const;

  std::optional<uint32_t> localAddress() const;
  std::optional<uint16_t> localPort() const;
  int descriptor() const { return descriptor_; }

 private:
  int descriptor_ = -1;
};

}  // namespace keocam
