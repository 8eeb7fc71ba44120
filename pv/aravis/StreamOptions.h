// What is set for the streams of this process.
#pragma once

#include "pv/aravis/StreamDetails.h"

namespace keocam {

/// As set last by setStreamOptions(); safe from any thread.
StreamOptions streamOptions();

}  // namespace keocam
