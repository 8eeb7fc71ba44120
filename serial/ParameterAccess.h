// The exchanges that the core's messages make: reading a parameter, writing one, and any other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "PvDevice.h"
#include "PvDeviceSerial.h"
#include "serial/Frame.h"

namespace keocam {

/// Where a core is reached. The device is not owned.
struct CorePort {
  PvDevice* device;
  PvDeviceSerial port;
};

/// How an exchange is gone about.
enum class Manner : uint8_t {
  Interface,  ///< as the members of CameraSerialSettings do: failures are told on standard error
  Checked,    ///< nothing is printed, and what has come late of earlier answers is thrown away first
};

/// Sends a request that reads, waits 11 ms, then up to 100 ms for the answer. The status of the reply, or UNKNOWN_ERROR
/// if there is none. Nothing else of the reply has been looked at.
ResponseStatuses exchangeRead(const CorePort& core, const std::vector<uint8_t>& request, ReplyBuffer& reply,
                              Manner manner);

/// Sends a request that writes or commands and waits up to 500 ms for the answer; for the rest as exchangeRead.
ResponseStatuses exchangeWrite(const CorePort& core, const std::vector<uint8_t>& request, ReplyBuffer& reply,
                               Manner manner);

/// Sends any request, waits `wait_us`, then up to 500 ms for the answer; for the rest as exchangeRead.
ResponseStatuses exchangeMessage(const CorePort& core, const uint8_t* frame, std::size_t size, int wait_us,
                                 ReplyBuffer& reply, Manner manner);

}  // namespace keocam
