// The camera's serial bridge, set to what the thermal core speaks.
#pragma once

#include "PvDevice.h"
#include "PvDeviceSerial.h"
#include "pv/aravis/DeviceDetails.h"

namespace keocam::cli {

/// The port behind which the core is.
constexpr PvDeviceSerial kCorePort = PvDeviceSerialBulk0;

/// 57600 baud, 8N1, no loopback. Throws CommandFailure that names the feature which the camera refuses: LinkLost if the
/// camera has gone, else Failure.
void setUpSerialBridge(PvDevice& device, const DeviceDetails& camera);

}  // namespace keocam::cli
