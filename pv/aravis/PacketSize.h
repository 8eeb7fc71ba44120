// Finds the largest stream packet that travels whole from a device to this host.
#pragma once

#include <cstdint>
#include <functional>

#include "PvResult.h"
#include "pv/aravis/DeviceDetails.h"
#include "pv/aravis/GLib.h"

namespace keocam {

/// The packet sizes that a device and a path allow, IP and UDP headers included.
struct PacketSizeRange {
  uint32_t minimum_bytes = 0;
  uint32_t maximum_bytes = 0;
  uint32_t step_bytes = 4;
};

/// The largest size of the range for which `arrives` is true, or 0. Tries the largest first, then bisects. Pure but for
/// `arrives`.
uint32_t largestArriving(const PacketSizeRange& range, const std::function<bool(uint32_t size_bytes)>& arrives);

/// Lets the device send test packets to a socket of this function's own, and sets the largest size that arrives, never
/// above the interface's MTU. If none arrives, or the device has no test packet, `fallback_bytes` is set, or with 0 the
/// size that the device had, cut to what an Ethernet of this MTU carries; the result says so. The stream's destination
/// is left as it was. Must not run while the device streams. For the device's working thread.
PvResult negotiatePacketSize(ArvDevice* device, const DeviceDetails& details, uint32_t fallback_bytes);

/// The packet size that the device is set to; 0 if it does not tell.
uint32_t packetSizeSetOn(ArvDevice* device);

}  // namespace keocam
