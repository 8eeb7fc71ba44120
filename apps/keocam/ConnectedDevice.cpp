#include "apps/keocam/ConnectedDevice.h"

#include "apps/keocam/ConnectFailure.h"
#include "pv/aravis/DeviceDetails.h"
#include "pv/aravis/Text.h"

namespace keocam::cli {

ConnectedDevice connectDevice(const PvDeviceInfo& info) {
  PvResult result;
  ConnectedDevice device(PvDevice::CreateAndConnect(&info, &result), &PvDevice::Free);
  if (device == nullptr) throw connectFailure(detailsOf(info), result.GetCode(), textOf(result.GetDescription()));
  return device;
}

}  // namespace keocam::cli
