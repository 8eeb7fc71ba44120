// A camera's device, under this program's control. Nothing else of the camera changes by that.
#pragma once

#include <memory>

#include "PvDevice.h"
#include "PvDeviceInfo.h"

namespace keocam::cli {

using ConnectedDevice = std::unique_ptr<PvDevice, void (*)(PvDevice*)>;

/// Throws CommandFailure: InUse, LinkLost if the camera does not answer, or Failure. `info` must outlive the device.
ConnectedDevice connectDevice(const PvDeviceInfo& info);

}  // namespace keocam::cli
