// A device's name for people.
#pragma once

#include <string>

#include "pv/aravis/DeviceDetails.h"

namespace keocam {

/// "KEOsim-640 KEOD2001 (127.0.0.2)". Text from the network is made safe to print: each byte that is not
/// a printable ASCII character becomes '?', since terminals also obey control characters that several bytes encode.
std::string displayName(const DeviceDetails& device);

}  // namespace keocam
