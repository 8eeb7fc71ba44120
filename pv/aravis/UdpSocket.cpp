#include "pv/aravis/UdpSocket.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace keocam {

namespace {

sockaddr_in addressOf(uint32_t address, uint16_t port) {
  sockaddr_in result{};
  result.sin_family = AF_INET;
  result.sin_addr.s_addr = htonl(address);
  result.sin_port = htons(port);
  return result;
}

// The socket interface takes every kind of address through this one type.
const sockaddr* generic(const sockaddr_in* address) { return reinterpret_cast<const sockaddr*>(address); }

std::optional<sockaddr_in> localName(int descriptor) {
  sockaddr_in name{};
  socklen_t size = sizeof name;
  if (getsockname(descriptor, reinterpret_cast<sockaddr*>(&name), &size) != 0) return {};
  return name;
}

}  // namespace

UdpSocket::~UdpSocket() {
  if (descriptor_ >= 0) close(descriptor_);
}

UdpSocket::UdpSocket(UdpSocket&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

UdpSocket& UdpSocket::operator=(UdpSocket&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

bool UdpSocket::open() {
  descriptor_ = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  return descriptor_ >= 0;
}

bool UdpSocket::bindToInterface(const std::string& name) {
  return setsockopt(descriptor_, SOL_SOCKET, SO_BINDTODEVICE, name.c_str(), static_cast<socklen_t>(name.size())) == 0;
}

bool UdpSocket::bindTo(uint32_t address, uint16_t port) {
  const sockaddr_in local = addressOf(address, port);
  return bind(descriptor_, generic(&local), sizeof local) == 0;
}

bool UdpSocket::connectTo(uint32_t address, uint16_t port) {
  const sockaddr_in peer = addressOf(address, port);
  return connect(descriptor_, generic(&peer), sizeof peer) == 0;
}

bool UdpSocket::send(const uint8_t* data, std::size_t size) const {
  return ::send(descriptor_, data, size, MSG_NOSIGNAL) == static_cast<ssize_t>(size);
}

std::optional<std::size_t> UdpSocket::receive(uint8_t* data, std::size_t capacity,
                                              std::chrono::steady_clock::time_point deadline) const {
  using std::chrono::milliseconds;
  for (;;) {
    const auto left = std::chrono::ceil<milliseconds>(deadline - std::chrono::steady_clock::now());
    pollfd waiting{descriptor_, POLLIN, 0};
    const int ready = poll(&waiting, 1, static_cast<int>(std::max(left, milliseconds(0)).count()));
    if (ready > 0) {
      const ssize_t size = recv(descriptor_, data, capacity, MSG_TRUNC | MSG_DONTWAIT);
      if (size >= 0) return static_cast<std::size_t>(size);
      // An error is the network's report that a datagram sent before found no taker; an answer may still come.
    }
    if (left <= milliseconds(0)) return {};
  }
}

std::optional<uint32_t> UdpSocket::localAddress() const {
  const auto name = localName(descriptor_);
  if (!name) return {};
  return ntohl(name->sin_addr.s_addr);
}

std::optional<uint16_t> UdpSocket::localPort() const {
  const auto name = localName(descriptor_);
  if (!name) return {};
  return ntohs(name->sin_port);
}

}  // namespace keocam
