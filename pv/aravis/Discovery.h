// One pass of discovery: which devices answered.
#pragma once

#include <vector>

#include "pv/aravis/DeviceDetails.h"

namespace keocam {

/// Asks on every interface for about a second. The devices' interface is not filled in; see assignInterface().
std::vector<DeviceDetails> discoverDevices();

/// Fills in the interface on which `device` is reached, one of `interfaces`, and returns its index. Without a match the
/// device is listed, not in its subnet, under the first interface. `interfaces` must not be empty. May ask the device.
std::size_t assignInterface(const std::vector<InterfaceDetails>& interfaces, DeviceDetails& device);

}  // namespace keocam
