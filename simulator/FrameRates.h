// The bounds of AcquisitionFrameRate.
#pragma once

namespace simulator {

constexpr double kLeastFrameRateHz = 1.0;
constexpr double kMostFrameRateHz = 1000.0;  ///< where the core does not limit it

}  // namespace simulator
