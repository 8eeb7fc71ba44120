// What was read of a camera's core, put into words.
#pragma once

#include "apps/keocam/info/CameraReadings.h"
#include "apps/keocam/info/InfoSection.h"

namespace keocam::cli {

/// Its numbers, what its part number says, and its temperatures.
InfoSection coreSection(const CameraReadings& readings);

/// What it computes temperatures with; lacking where it is not radiometric.
InfoSection radiometrySection(const CameraReadings& readings);

}  // namespace keocam::cli
