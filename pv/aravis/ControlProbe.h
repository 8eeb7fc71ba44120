// Asks a device whether it is there and who controls it, without taking control.
#pragma once

#include "pv/aravis/DeviceDetails.h"

namespace keocam {

/// What a device said about its control.
enum class ControlState { Free, Controlled, NoAnswer };

/// Asks a few times, for less than 0.7 s in all.
ControlState probeControl(const InterfaceDetails& interface, const std::string& device_address);

/// The interface part of what discovery recorded.
InterfaceDetails interfaceOf(const DeviceDetails& device);

}  // namespace keocam
