// Discovery as an application sees it: interfaces with the devices that answered on them.
#include "PvSystem.h"

#include <tuple>
#include <utility>

#include "pv/aravis/Discovery.h"
#include "pv/aravis/Error.h"
#include "pv/aravis/NetworkInterfaces.h"
#include "pv/aravis/PvLayer.h"

namespace {

auto fields(const keocam::DeviceDetails& device) {
  return std::tie(device.serial_number, device.vendor, device.model, device.address, device.mac_address,
                  device.interface_name, device.interface_address, device.in_subnet);
}

auto fields(const keocam::InterfaceDetails& interface) {
  return std::tie(interface.name, interface.address, interface.netmask);
}

}  // namespace

PvInterface::PvInterface(std::unique_ptr<State> state) : state_(std::move(state)) {}
PvInterface::~PvInterface() = default;

unsigned int PvInterface::GetDeviceCount() const { return static_cast<unsigned int>(state_->devices.size()); }

const PvDeviceInfo* PvInterface::GetDeviceInfo(unsigned int index) const {
  return index < state_->devices.size() ? state_->devices[index] : nullptr;
}

std::unique_ptr<PvInterface> PvLayer::makeInterface(const keocam::InterfaceDetails& details) {
  auto state = std::make_unique<PvInterface::State>();
  state->details = details;
  return std::unique_ptr<PvInterface>(new PvInterface(std::move(state)));
}

PvSystem::PvSystem() : state_(std::make_unique<State>()) {}
PvSystem::~PvSystem() = default;

PvResult PvSystem::Find() {
  const std::vector<keocam::InterfaceDetails> interfaces = keocam::listInterfaces();
  for (const auto& interface : state_->interfaces) PvLayer::state(*interface).devices.clear();
  state_->listed.clear();
  if (interfaces.empty()) {
    return keocam::failure(PvResult::Code::NotFound,
                           "No network interface is up and has an IPv4 address; bring one up and try again.");
  }
  for (const keocam::InterfaceDetails& details : interfaces) {
    PvInterface* listed = nullptr;
    for (const auto& known : state_->interfaces) {
      if (fields(PvLayer::state(*known).details) == fields(details)) listed = known.get();
    }
    if (listed == nullptr) listed = state_->interfaces.emplace_back(PvLayer::makeInterface(details)).get();
    state_->listed.push_back(listed);
  }
  for (keocam::DeviceDetails& details : keocam::discoverDevices()) {
    const std::size_t index = keocam::assignInterface(interfaces, details);
    const PvDeviceInfo* info = nullptr;
    for (const auto& known : state_->infos) {
      if (fields(PvLayer::details(*known)) == fields(details)) info = known.get();
    }
    if (info == nullptr) info = state_->infos.emplace_back(PvLayer::makeDeviceInfo(details)).get();
    PvLayer::state(*state_->listed[index]).devices.push_back(info);
  }
  return {};
}

unsigned int PvSystem::GetInterfaceCount() const { return static_cast<unsigned int>(state_->listed.size()); }

const PvInterface* PvSystem::GetInterface(unsigned int index) const {
  return index < state_->listed.size() ? state_->listed[index] : nullptr;
}

namespace keocam {

std::vector<InterfaceDetails> searchedInterfaces() { return listInterfaces(); }

}  // namespace keocam
