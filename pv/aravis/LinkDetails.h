// What is known of the way to a connected device: for tools that tell of it.
#pragma once

#include <cstdint>

class PvDevice;

namespace keocam {

/// Zeros for what is not known.
struct LinkDetails {
  uint32_t packet_size_bytes = 0;    ///< that the device is set to, IP and UDP headers included
  uint32_t link_speed_mbit_s = 0;    ///< as the device tells it; many do not
  uint32_t interface_mtu_bytes = 0;  ///< of this host's interface
};

/// Asks the device; changes nothing on it. Zeros for one that is not connected any more.
LinkDetails linkOf(const PvDevice& device);

}  // namespace keocam
