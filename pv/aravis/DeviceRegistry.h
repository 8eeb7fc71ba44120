// The devices that this process is connected to.
#pragma once

#include <memory>
#include <string>

#include "pv/aravis/DeviceLink.h"

namespace keocam {

/// The connected device at this address, or null. Safe from any thread, as is all here.
std::shared_ptr<DeviceLink> connectedDevice(const std::string& address);

/// Makes the link known under its device's address, in place of one that was lost. The registry owns nothing.
void registerDevice(const std::shared_ptr<DeviceLink>& link);

}  // namespace keocam
