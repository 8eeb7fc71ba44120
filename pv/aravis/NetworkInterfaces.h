// This host's network interfaces, and which of them reaches an address.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "pv/aravis/DeviceDetails.h"

namespace keocam {

/// An IPv4 address as a number, its first part in the most significant byte.
using Ipv4 = uint32_t;

/// Empty unless `dotted` is an IPv4 address in dotted form.
std::optional<Ipv4> parseIpv4(const std::string& dotted);
std::string formatIpv4(Ipv4 address);

/// The interfaces that discovery asks, in the system's order: those that are up, have an IPv4 address and are not
/// point-to-point. Loopback is one of them. Empty if the system does not tell.
std::vector<InterfaceDetails> listInterfaces();

/// The indices, in order, of the interfaces whose subnet `device` lies in. Pure.
std::vector<std::size_t> interfacesInSubnet(const std::vector<InterfaceDetails>& interfaces, Ipv4 device);

struct InterfaceChoice {
  std::size_t index = 0;
  bool in_subnet = true;
};

/// What choosing an interface may ask of the network.
struct ReachQuestions {
  /// This host's address from which the kernel sends to the device; empty if it has no route.
  std::function<std::optional<Ipv4>(Ipv4 device)> routed_from;
  /// Whether the device answers a command sent through `interface`.
  std::function<bool(const InterfaceDetails& interface, Ipv4 device)> answers_on;
};

/// The interface under which to list a device: the one whose subnet it lies in; of several, the first on which it
/// answers; outside every subnet, the one that the kernel routes to it by. Empty if none reaches it.
std::optional<InterfaceChoice> chooseInterface(const std::vector<InterfaceDetails>& interfaces, Ipv4 device,
                                               const ReachQuestions& questions);

/// The source address of the kernel's route to `device`; sends nothing.
std::optional<Ipv4> routedFrom(Ipv4 device);

/// Bytes in the largest IP packet of an ordinary Ethernet.
constexpr uint32_t kEthernetMtu_bytes = 1500;

/// Bytes in the largest IP packet of the interface called `name`; kEthernetMtu_bytes if the system does not tell.
uint32_t mtuOf(const std::string& name);

}  // namespace keocam
