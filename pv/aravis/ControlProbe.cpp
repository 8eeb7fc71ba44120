#include "pv/aravis/ControlProbe.h"

#include <algorithm>

#include "pv/aravis/GvcpClient.h"

namespace keocam {

namespace {
constexpr int kTries = 3;
constexpr std::chrono::milliseconds kWait_ms(220);
constexpr std::chrono::milliseconds kLongest_ms(kTries* kWait_ms);
}  // namespace

ControlState probeControl(const InterfaceDetails& interface, const std::string& device_address) {
  GvcpClient client;
  if (!client.open(interface, device_address)) return ControlState::NoAnswer;
  std::chrono::milliseconds left_ms = kLongest_ms;
  while (left_ms > std::chrono::milliseconds(0)) {
    const auto answer = client.readRegister(bootstrap::kControlPrivilege, std::min(kWait_ms, left_ms), left_ms);
    if (!answer) {
      left_ms -= client.waited();
      continue;
    }
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
