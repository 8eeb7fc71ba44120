// What was read of a camera, put into words.
#pragma once

#include <vector>

#include "apps/keocam/info/CameraReadings.h"
#include "apps/keocam/info/InfoSection.h"

namespace keocam::cli {

/// Camera, link, thermal core, radiometry and lenses, in this order.
std::vector<InfoSection> infoSections(const CameraReadings& readings);

}  // namespace keocam::cli
