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

/// The sizes that a device takes, from 576 bytes on where it takes smaller ones too, and never above the interface's
/// MTU. They stay whole steps away from the device's own minimum. Pure.
PacketSizeRange rangeWithin(const PacketSizeRange& device, uint32_t mtu_bytes);

/// The largest size of the range that is not above `size_bytes`, or else its minimum. Pure.
uint32_t roundedToStep(const PacketSizeRange& range, uint32_t size_bytes);

/// What a search asks of the device and of the socket that its test packets are sent to.
struct PacketSizeTrial {
  std::function<PvResult(uint32_t value)> write;      ///< writes the device's packet size register
  std::function<bool(uint32_t size_bytes)> receives;  ///< waits for a test packet of this size
};

/// Sets the largest size whose test packet arrives and stores it in `found_bytes`. A size that the device refuses as
/// invalid counts as one that does not arrive. If none arrives, `found_bytes` is 0; then, and after any other failure,
/// the register is written back to `before`, the value that it had, without the bit that fires a test packet.
PvResult searchPacketSize(const PacketSizeRange& range, uint32_t before, const PacketSizeTrial& trial,
                          uint32_t& found_bytes);

/// Lets the device send test packets to a socket of this function's own, and sets the largest size that arrives, never
/// above the interface's MTU. If none arrives, or the device has no test packet, `fallback_bytes` is set, or with 0 the
/// size that the device had, cut to what an Ethernet of this MTU carries; the result says so. The stream's destination
/// is left as it was. Must not run while the device streams. For the device's working thread.
PvResult negotiatePacketSize(ArvDevice* device, const DeviceDetails& details, uint32_t fallback_bytes);

/// The packet size that the device is set to; 0 if it does not tell.
uint32_t packetSizeSetOn(ArvDevice* device);

}  // namespace keocam
