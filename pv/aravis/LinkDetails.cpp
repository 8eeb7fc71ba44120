#include "pv/aravis/LinkDetails.h"

#include <algorithm>
#include <memory>

#include "pv/aravis/Features.h"
#include "pv/aravis/NetworkInterfaces.h"
#include "pv/aravis/PacketSize.h"
#include "pv/aravis/PvLayer.h"

namespace keocam {
namespace {

// Not every device has the feature.
uint32_t linkSpeedOf(ArvDevice* device) {
  int64_t speed_mbit_s = 0;
  if (!readInteger(device, "GevLinkSpeed", speed_mbit_s).IsOK()) return 0;
  return static_cast<uint32_t>(std::clamp<int64_t>(speed_mbit_s, 0, UINT32_MAX));
}

}  // namespace

LinkDetails linkOf(const PvDevice& device) {
  const std::shared_ptr<DeviceLink>& link = PvLayer::link(device);
  const auto told = std::make_shared<LinkDetails>();
  const PvResult result = link->run([told](ArvDevice* connected) {
    told->packet_size_bytes = packetSizeSetOn(connected);
    told->link_speed_mbit_s = linkSpeedOf(connected);
    return PvResult();
  });
  // After a time-out the device may be asked still, and what it says be written.
  LinkDetails details;
  if (result.IsOK()) details = *told;
  details.interface_mtu_bytes = mtuOf(link->details().interface_name);
  return details;
}

}  // namespace keocam
