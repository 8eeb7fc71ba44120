#include "pv/aravis/ControlProbe.h"

#include "pv/aravis/GvcpClient.h"

namespace keocam {

namespace {
constexpr int kTries = 3;
constexpr std::chrono::milliseconds kWait_ms(220);
}  // namespace

ControlState probeControl(const InterfaceDetails& interface, const std::string& device_address) {
  GvcpClient client;
  if (!client.open(interface, device_address)) return ControlState::NoAnswer;
  for (int attempt = 0; attempt < kTries; ++attempt) {
    const auto answer = client.readRegister(bootstrap::kControlPrivilege, kWait_ms);
    if (!answer) continue;
    // A device under exclusive access refuses even this question.
    if (answer->status != 0) return ControlState::Controlled;
    return (answer->value & kControlledMask) != 0 ? ControlState::Controlled : ControlState::Free;
  }
  return ControlState::NoAnswer;
}

InterfaceDetails interfaceOf(const DeviceDetails& device) {
  return {device.interface_name, device.interface_address, {}};
}

}  // namespace keocam
