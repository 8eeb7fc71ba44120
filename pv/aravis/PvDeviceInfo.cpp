// Descriptions of devices, and the questions about them that need no connection.
#include "PvDeviceInfo.h"

#include <utility>

#include "pv/aravis/ControlProbe.h"
#include "pv/aravis/DeviceRegistry.h"
#include "pv/aravis/DisplayName.h"
#include "pv/aravis/LastFailures.h"
#include "pv/aravis/PvLayer.h"

PvDeviceInfo::PvDeviceInfo(std::unique_ptr<State> state) : state_(std::move(state)) {}
PvDeviceInfo::~PvDeviceInfo() = default;

PvString PvDeviceInfo::GetSerialNumber() const { return PvString(state_->details.serial_number); }

PvString PvDeviceInfo::GetConnectionID() const { return PvString(state_->details.address); }

PvString PvDeviceInfo::GetDisplayID() const { return PvString(keocam::displayName(state_->details)); }

std::unique_ptr<PvDeviceInfo> PvLayer::makeDeviceInfo(const keocam::DeviceDetails& details) {
  auto state = std::make_unique<PvDeviceInfo::State>();
  state->details = details;
  return std::unique_ptr<PvDeviceInfo>(new PvDeviceInfo(std::move(state)));
}

namespace keocam {

DeviceDetails detailsOf(const PvDeviceInfo& info) { return PvLayer::details(info); }

PvResult lastFailureOf(const PvDeviceInfo& info) { return notedFailure(PvLayer::details(info).address); }

DeviceUse useOf(const PvDeviceInfo& info) {
  const DeviceDetails& device = PvLayer::details(info);
  if (connectedDevice(device.address)) return DeviceUse::ThisProcess;
  switch (probeControl(interfaceOf(device), device.address)) {
    case ControlState::Free:
      return DeviceUse::Free;
    case ControlState::Controlled:
      return DeviceUse::OtherHost;
    case ControlState::NoAnswer:
      break;
  }
  return DeviceUse::NoAnswer;
}

}  // namespace keocam
