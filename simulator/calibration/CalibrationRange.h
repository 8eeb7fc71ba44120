// The host's ranges of temperature.
#pragma once

#include <cstdint>

namespace simulator {

/// As a calibration numbers them.
enum class CalibrationRange : uint8_t { Low = 0, Middle = 1, High = 2 };

}  // namespace simulator
