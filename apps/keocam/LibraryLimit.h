// How many frames of a camera applications get of the library, as far as its serial number tells.
#pragma once

#include <optional>
#include <string>

namespace keocam::cli {

/// Frames a second at most; nothing where the library hands out all frames, or does not take the serial number.
std::optional<int> libraryLimitOf(const std::string& serial_number);

}  // namespace keocam::cli
