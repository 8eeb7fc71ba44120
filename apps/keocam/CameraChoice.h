// Which of the cameras found a command means, and what to tell a person who meant another.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "pv/aravis/DeviceDetails.h"

namespace keocam::cli {

/// The index of the camera with `serial_number`, or of the only one there is. Otherwise throws CommandFailure:
/// NoSuchCamera with the serial numbers that were found, or Usage if more than one camera fits.
std::size_t chooseCamera(const std::vector<DeviceDetails>& found, const std::optional<std::string>& serial_number,
                         const std::vector<InterfaceDetails>& interfaces);

/// "No camera answered", the interfaces asked, and what to check.
std::string noCameraAdvice(const std::vector<InterfaceDetails>& interfaces);

/// What is wrong with the camera's address, and how to cure it; for cameras outside their interface's subnet.
std::string subnetAdvice(const DeviceDetails& camera);

/// The camera's name in messages: serial number and address, fit for a terminal.
std::string nameOf(const DeviceDetails& camera);

}  // namespace keocam::cli
