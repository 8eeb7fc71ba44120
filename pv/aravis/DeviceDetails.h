// What is known of a discovered device beyond its description: for tools that list devices.
#pragma once

#include <string>
#include <vector>

class PvDeviceInfo;
class PvResult;

namespace keocam {

/// Who controls a device.
enum class DeviceUse {
  Free,         ///< no host controls it
  ThisProcess,  ///< this process does
  OtherHost,    ///< another process or host does
  NoAnswer,     ///< the device did not answer the question
};

struct DeviceDetails {
  std::string serial_number;  ///< as reported by the device: untrusted text
  std::string vendor;
  std::string model;
  std::string address;            ///< IPv4, dotted
  std::string mac_address;        ///< "02:00:00:00:00:01"
  std::string interface_name;     ///< "eth0"
  std::string interface_address;  ///< this host's IPv4 address there, dotted
  bool in_subnet = true;          ///< the device's address lies in the interface's subnet
};

/// The details that discovery recorded; sends nothing.
DeviceDetails detailsOf(const PvDeviceInfo& info);

/// Asks the device who controls it. Blocks at most 0.7 s; needs no control itself.
DeviceUse useOf(const PvDeviceInfo& info);

/// Why the latest attempt in this process to connect to the device or to open its stream failed, or why its connection
/// was lost since; Ok if none of that happened. InUse if another host controls the device; NotConnected or Timeout if
/// it does not answer. Any thread; asks the device nothing.
PvResult lastFailureOf(const PvDeviceInfo& info);

/// A network interface that discovery asks.
struct InterfaceDetails {
  std::string name;
  std::string address;  ///< IPv4, dotted
  std::string netmask;  ///< IPv4, dotted
};

/// The interfaces that PvSystem::Find() asks, in the system's order.
std::vector<InterfaceDetails> searchedInterfaces();

}  // namespace keocam
