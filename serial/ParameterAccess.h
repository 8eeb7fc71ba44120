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

/// Whether a failure is told on standard error, as by the members of CameraSerialSettings.
enum class Report : uint8_t { Printed, Silent };

/// Sends a request that reads, waits 11 ms, then up to 100 ms for the answer. The status of the reply, or UNKNOWN_ERROR
/// if there is none. Nothing else of the reply has been looked at.
ResponseStatuses exchangeRead(const CorePort& core, const std::vector<uint8_t>& request, ReplyBuffer& reply,
                              Report report);

/// Sends a request that writes or commands and waits up to 500 ms for the answer; for the rest as exchangeRead.
ResponseStatuses exchangeWrite(const CorePort& core, const std::vector<uint8_t>& request, ReplyBuffer& reply,
                               Report report);

/// Sends any request, waits `wait_us`, then up to 500 ms for the answer; for the rest as exchangeRead.
ResponseStatuses exchangeMessage(const CorePort& core, const uint8_t* frame, std::size_t size, int wait_us,
                                 ReplyBuffer& reply, Report report);

}  // namespace keocam
