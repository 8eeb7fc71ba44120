// The stream channels that a device is used with: the first alone.
#pragma once

#include "PvResult.h"

namespace keocam {

/// Ok for channel 0, InvalidParameter for every other.
PvResult checkChannel(unsigned int channel);

}  // namespace keocam
