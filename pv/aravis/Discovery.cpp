#include "pv/aravis/Discovery.h"

#include <mutex>
#include <string>

#include "pv/aravis/ControlProbe.h"
#include "pv/aravis/GLib.h"
#include "pv/aravis/NetworkInterfaces.h"

namespace keocam {

namespace {

std::string textOf(const char* text) { return text != nullptr ? text : ""; }

}  // namespace

std::vector<DeviceDetails> discoverDevices() {
  // Aravis keeps one list for the process, whose texts end at its next update.
  static auto* const mutex = new std::mutex;
  const std::lock_guard<std::mutex> lock(*mutex);
  arv_disable_interface("USB3Vision");
  arv_update_device_list();
  std::vector<DeviceDetails> devices;
  const unsigned int count = arv_get_n_devices();
  for (unsigned int index = 0; index < count; ++index) {
    if (textOf(arv_get_device_protocol(index)) != "GigEVision") continue;
    DeviceDetails device;
    device.vendor = textOf(arv_get_device_vendor(index));
    device.model = textOf(arv_get_device_model(index));
    device.address = textOf(arv_get_device_address(index));
    device.mac_address = textOf(arv_get_device_physical_id(index));
    device.serial_number = textOf(arv_get_device_serial_nbr(index));
    if (device.serial_number.empty()) device.serial_number = device.mac_address;
    devices.push_back(device);
  }
  return devices;
}

std::size_t assignInterface(const std::vector<InterfaceDetails>& interfaces, DeviceDetails& device) {
  const ReachQuestions questions{routedFrom, [](const InterfaceDetails& interface, Ipv4 address) {
                                   return probeControl(interface, formatIpv4(address)) != ControlState::NoAnswer;
                                 }};
  const auto address = parseIpv4(device.address);
  const auto choice = address ? chooseInterface(interfaces, *address, questions) : std::nullopt;
  const InterfaceChoice chosen = choice.value_or(InterfaceChoice{0, false});
  device.interface_name = interfaces[chosen.index].name;
  device.interface_address = interfaces[chosen.index].address;
  device.in_subnet = chosen.in_subnet;
  return chosen.index;
}

}  // namespace keocam
