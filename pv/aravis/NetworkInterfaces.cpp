#include "pv/aravis/NetworkInterfaces.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <cstring>
#include <memory>

#include "pv/aravis/UdpSocket.h"

namespace keocam {

namespace {

constexpr uint16_t kDiscardPort = 9;  // any port will do: nothing is sent

struct FreeInterfaces {
  void operator()(ifaddrs* list) const { freeifaddrs(list); }
};

Ipv4 addressIn(const sockaddr* socket_address) {
  sockaddr_in address{};
  std::memcpy(&address, socket_address, sizeof address);
  return ntohl(address.sin_addr.s_addr);
}

}  // namespace

std::optional<Ipv4> parseIpv4(const std::string& dotted) {
  in_addr address{};
  if (inet_pton(AF_INET, dotted.c_str(), &address) != 1) return {};
  return ntohl(address.s_addr);
}

std::string formatIpv4(Ipv4 address) {
  std::string text;
  for (int shift = 24; shift >= 0; shift -= 8) {
    text += std::to_string((address >> shift) & 0xFFU);
    if (shift > 0) text += '.';
  }
  return text;
}

std::vector<InterfaceDetails> listInterfaces() {
  ifaddrs* first = nullptr;
  if (getifaddrs(&first) != 0) return {};
  const std::unique_ptr<ifaddrs, FreeInterfaces> owner(first);
  std::vector<InterfaceDetails> interfaces;
  for (const ifaddrs* each = first; each != nullptr; each = each->ifa_next) {
    // Aravis asks just these; listing others would show interfaces on which no device can be found.
    const bool asked = (each->ifa_flags & IFF_UP) != 0 && (each->ifa_flags & IFF_POINTOPOINT) == 0;
    if (!asked || each->ifa_addr == nullptr || each->ifa_netmask == nullptr) continue;
    if (each->ifa_addr->sa_family != AF_INET) continue;
    interfaces.push_back(
        {each->ifa_name, formatIpv4(addressIn(each->ifa_addr)), formatIpv4(addressIn(each->ifa_netmask))});
  }
  return interfaces;
}

std::vector<std::size_t> interfacesInSubnet(const std::vector<InterfaceDetails>& interfaces, Ipv4 device) {
  std::vector<std::size_t> matching;
  for (std::size_t index = 0; index < interfaces.size(); ++index) {
    const auto address = parseIpv4(interfaces[index].address);
    const auto netmask = parseIpv4(interfaces[index].netmask);
    if (address && netmask && ((*address ^ device) & *netmask) == 0) matching.push_back(index);
  }
  return matching;
}

std::optional<InterfaceChoice> chooseInterface(const std::vector<InterfaceDetails>& interfaces, Ipv4 device,
                                               const ReachQuestions& questions) {
  const std::vector<std::size_t> matching = interfacesInSubnet(interfaces, device);
  if (matching.size() == 1) return InterfaceChoice{matching.front(), true};
  for (const std::size_t index : matching) {
    if (questions.answers_on(interfaces[index], device)) return InterfaceChoice{index, true};
  }
  if (!matching.empty()) return InterfaceChoice{matching.front(), true};

  const std::optional<Ipv4> source = questions.routed_from(device);
  if (!source) return {};
  for (std::size_t index = 0; index < interfaces.size(); ++index) {
    if (parseIpv4(interfaces[index].address) == source) return InterfaceChoice{index, false};
  }
  return {};
}

std::optional<Ipv4> routedFrom(Ipv4 device) {
  UdpSocket socket;
  if (!socket.open() || !socket.connectTo(device, kDiscardPort)) return {};
  return socket.localAddress();
}

uint32_t mtuOf(const std::string& name) {
  UdpSocket socket;
  ifreq request{};
  if (!socket.open() || name.size() >= sizeof request.ifr_name) return kEthernetMtu_bytes;
  name.copy(request.ifr_name, sizeof request.ifr_name - 1);
  if (ioctl(socket.descriptor(), SIOCGIFMTU, &request) != 0 || request.ifr_mtu <= 0) return kEthernetMtu_bytes;
  return static_cast<uint32_t>(request.ifr_mtu);
}

}  // namespace keocam
