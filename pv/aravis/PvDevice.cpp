// Connecting to a device and giving it back, and what every kind of device can do.
#include "PvDevice.h"

#include <utility>

#include "pv/aravis/ControlProbe.h"
#include "pv/aravis/DeviceRegistry.h"
#include "pv/aravis/DisplayName.h"
#include "pv/aravis/Error.h"
#include "pv/aravis/Features.h"
#include "pv/aravis/LastFailures.h"
#include "pv/aravis/PvLayer.h"
#include "pv/aravis/StreamChannel.h"

namespace {

using Code = PvResult::Code;

// With the probe in front of it and the watcher's first question behind, connecting stays below three seconds.
constexpr std::chrono::milliseconds kOpenLimit_ms(2000);

// Whether a connection may be tried, found out before Aravis is asked: it would take five seconds to miss a device.
PvResult readiness(const keocam::DeviceDetails& device) {
  const std::string name = keocam::displayName(device);
  if (keocam::connectedDevice(device.address)) {
    return keocam::failure(Code::InUse, name + " is connected by this program already.");
  }
  switch (keocam::probeControl(keocam::interfaceOf(device), device.address)) {
    case keocam::ControlState::Free:
      return {};
    case keocam::ControlState::Controlled:
      return keocam::failure(Code::InUse, name + " is in use by another host.");
    case keocam::ControlState::NoAnswer:
      break;
  }
  return keocam::failure(Code::NotConnected, name + " does not answer on " + device.interface_name + " (" +
                                                 device.interface_address +
                                                 "); check its power and cable, then search again.");
}

PvResult lockTransport(ArvDevice* device, bool locked) {
  // Devices that do not have the feature need no locking.
  if (arv_device_get_feature(device, "TLParamsLocked") == nullptr) return {};
  keocam::GErrorPtr error;
  arv_device_set_integer_feature_value(device, "TLParamsLocked", locked ? 1 : 0, error.out());
  return keocam::resultOf(error, std::string("Setting TLParamsLocked to ") + (locked ? "1" : "0"));
}

PvResult setEnabled(keocam::DeviceLink& link, unsigned int channel, bool enabled) {
  PvResult result = keocam::checkChannel(channel);
  if (!result.IsOK()) return result;
  return link.run([enabled](ArvDevice* device) { return lockTransport(device, enabled); });
}

}  // namespace

PvDevice* PvDevice::CreateAndConnect(const PvDeviceInfo* info, PvResult* result) {
  PvResult unused;
  PvResult& outcome = result != nullptr ? *result : unused;
  if (info == nullptr) {
    outcome = keocam::failure(Code::InvalidParameter, "There is no device information to connect by.");
    return nullptr;
  }
  const keocam::DeviceDetails& details = PvLayer::details(*info);
  keocam::noteOutcome(details.address, {});  // Before the attempt, so that a loss right after it is not forgotten.
  std::shared_ptr<keocam::DeviceLink> link;
  outcome = readiness(details);
  if (outcome.IsOK()) link = keocam::DeviceLink::connect(details, kOpenLimit_ms, outcome);
  if (!link) {
    keocam::noteOutcome(details.address, outcome);
    return nullptr;
  }
  keocam::registerDevice(link);
  return PvLayer::makeDevice(link);
}

void PvDevice::Free(PvDevice* device) { delete device; }

PvDevice::PvDevice(std::unique_ptr<State> state) : state_(std::move(state)) {}

PvDevice::~PvDevice() { state_->link->disconnect(); }

bool PvDevice::IsConnected() const { return state_->link->connected(); }

PvResult PvDevice::Disconnect() {
  if (!IsConnected()) return keocam::failure(Code::NotConnected, "The device is not connected.");
  state_->link->disconnect();
  return {};
}

int64_t PvDevice::GetPayloadSize() {
  const auto size_bytes = std::make_shared<int64_t>(0);
  const PvResult result =
      state_->link->run([size_bytes](ArvDevice* device) { return keocam::readPayloadSize(device, *size_bytes); });
  return result.IsOK() && *size_bytes > 0 ? *size_bytes : 0;
}

PvGenParameterArray* PvDevice::GetParameters() { return state_->parameters.get(); }

PvResult PvDevice::StreamEnable(unsigned int channel) { return setEnabled(*state_->link, channel, true); }

PvResult PvDevice::StreamDisable(unsigned int channel) { return setEnabled(*state_->link, channel, false); }

PvDeviceAdapter::PvDeviceAdapter(PvDevice* device) : state_(std::make_unique<State>()) {
  if (device != nullptr) state_->link = PvLayer::link(*device);
}

PvDeviceAdapter::~PvDeviceAdapter() = default;
