// The core that goes with a camera.
#pragma once

#include "simulator/SimulatedCamera.h"
#include "simulator/core/ThermalCore.h"

namespace simulator {

/// Options of a fast radiometric core for the camera's sensor, with the camera's seed, that takes no time to answer
/// where the camera's UART takes none. An unusual sensor gets the part number of the largest.
///
///     camera.core = std::make_shared<ThermalCore>(coreOptionsFor(camera));
CoreOptions coreOptionsFor(const CameraOptions& camera);

}  // namespace simulator
