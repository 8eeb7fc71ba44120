// UDP sockets that close themselves, and the IPv4 addresses they are bound to.
#pragma once

#include <cstdint>
#include <string>

namespace simulator {

/// IPv4 addresses in host byte order.
uint32_t parseIp(const std::string& text);  ///< throws std::runtime_error with a text that names the address
std::string formatIp(uint32_t ip);

struct InterfaceAddress {
  std::string name;
  uint32_t ip = 0;
  uint32_t mask = 0;
};

/// The interface whose subnet holds `ip`. Throws std::runtime_error where there is none.
InterfaceAddress interfaceOf(uint32_t ip);

/// The first IPv4 address of the interface `name`. Throws std::runtime_error where there is none.
InterfaceAddress interfaceNamed(const std::string& name);

enum class Sharing {
  Exclusive,
  Shared,  ///< other sockets may be bound to the same address and port; broadcasts reach all of them
};

class UdpSocket {
 public:
  /// Binds; port 0 takes any. Throws std::runtime_error with a text that names the address and what to do.
  UdpSocket(uint32_t ip, uint16_t port, Sharing sharing);
  ~UdpSocket();
  UdpSocket(const UdpSocket&) = delete;
  UdpSocket& operator=(const UdpSocket&) = delete;

  int fd() const { return fd_; }
  uint16_t port() const;

  /// Forbids fragments: packets above the path's MTU are refused instead.
  void setDoNotFragment(bool on) const;

 private:
  int fd_;
};

}  // namespace simulator
