#include "simulator/UdpSocket.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <functional>
#include <memory>
#include <stdexcept>

namespace simulator {
namespace {

sockaddr_in socketAddress(uint32_t ip, uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(ip);
  address.sin_port = htons(port);
  return address;
}

uint32_t ipOf(const sockaddr* address) {
  sockaddr_in ipv4{};
  std::memcpy(&ipv4, address, sizeof ipv4);
  return ntohl(ipv4.sin_addr.s_addr);
}

std::string bindFailure(uint32_t ip, uint16_t port, int error) {
  const std::string where = formatIp(ip) + ":" + std::to_string(port);
  switch (error) {
    case EADDRINUSE:
      return where + " is in use: another camera runs there. Stop it or choose another address.";
    case EADDRNOTAVAIL:
      return formatIp(ip) +
             " is no address of this machine. Choose one that `ip address` lists, or one of 127.0.0.0/8.";
    case EACCES:
      return where + " may not be used: " + std::strerror(error) + ". Choose a unicast address of this machine.";
    default:
      return where + " cannot be used: " + std::strerror(error);
  }
}

InterfaceAddress findInterface(const std::function<bool(const InterfaceAddress&)>& matches,
                               const std::string& failure) {
  ifaddrs* list = nullptr;
  if (getifaddrs(&list) != 0)
    throw std::runtime_error(std::string("cannot list the interfaces: ") + std::strerror(errno));
  const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> owner(list, &freeifaddrs);
  for (const ifaddrs* entry = list; entry != nullptr; entry = entry->ifa_next) {
    if (entry->ifa_addr == nullptr || entry->ifa_netmask == nullptr || entry->ifa_addr->sa_family != AF_INET) continue;
    InterfaceAddress candidate{entry->ifa_name, ipOf(entry->ifa_addr), ipOf(entry->ifa_netmask)};
    if (matches(candidate)) return candidate;
  }
  throw std::runtime_error(failure);
}

}  // namespace

uint32_t parseIp(const std::string& text) {
  in_addr address{};
  if (inet_pton(AF_INET, text.c_str(), &address) != 1) {
    throw std::runtime_error("'" + text + "' is no IPv4 address; write it as in 127.0.0.2");
  }
  return ntohl(address.s_addr);
}

std::string formatIp(uint32_t ip) {
  char text[INET_ADDRSTRLEN] = {};
  const in_addr address{htonl(ip)};
  inet_ntop(AF_INET, &address, text, sizeof text);
  return text;
}

InterfaceAddress interfaceOf(uint32_t ip) {
  return findInterface([ip](const InterfaceAddress& candidate) { return ((candidate.ip ^ ip) & candidate.mask) == 0; },
                       formatIp(ip) +
                           " lies in the subnet of no interface of this machine. Choose an address that "
                           "`ip address` lists, or one of 127.0.0.0/8 while the interface lo is up.");
}

InterfaceAddress interfaceNamed(const std::string& name) {
  return findInterface([&name](const InterfaceAddress& candidate) { return candidate.name == name; },
                       "the interface '" + name + "' does not exist or has no IPv4 address; `ip address` lists them");
}

UdpSocket::UdpSocket(uint32_t ip, uint16_t port, Sharing sharing)
    : fd_(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
  if (fd_ < 0) throw std::runtime_error(std::string("cannot open a UDP socket: ") + std::strerror(errno));
  const int on = 1;
  if (sharing == Sharing::Shared) ::setsockopt(fd_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  const sockaddr_in address = socketAddress(ip, port);
  if (::bind(fd_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    const int error = errno;
    ::close(fd_);
    throw std::runtime_error(bindFailure(ip, port, error));
  }
}

UdpSocket::~UdpSocket() { ::close(fd_); }

uint16_t UdpSocket::port() const {
  sockaddr_in address{};
  socklen_t length = sizeof address;
  ::getsockname(fd_, reinterpret_cast<sockaddr*>(&address), &length);
  return ntohs(address.sin_port);
}

void UdpSocket::setDoNotFragment(bool on) const {
  const int mode = on ? IP_PMTUDISC_PROBE : IP_PMTUDISC_DONT;
  ::setsockopt(fd_, IPPROTO_IP, IP_MTU_DISCOVER, &mode, sizeof mode);
}

}  // namespace simulator
