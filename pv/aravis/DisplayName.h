// A device's name for people.
#pragma once

#include <string>

#include "pv/aravis/DeviceDetails.h"

namespace keocam {

/// "KEOsim-640 KEOD2001 (127.0.0.2)". Text from the network is made safe to print: control characters become '?'.
std::string displayName(const DeviceDetails& device);

}  // namespace keocam
