// A frame with its temperatures.
#pragma once

#include <cstdint>
#include <vector>

#include "apps/keocam/frames/RawFrame.h"
#include "measurement/TemperatureImage.h"

namespace keocam::cli {

struct TemperatureFrame {
  RawImage raw;
  std::vector<float> celsius;  ///< a pixel each; NaN where there is no temperature
  uint64_t time_ns = 0;        ///< when it began to arrive by this host's clock, since 1970

  TemperatureImage<float> image() const {
    return {celsius.data(), static_cast<int>(raw.width), static_cast<int>(raw.height)};
  }
};

/// The values of a received frame. Throws CommandFailure (Failure) for one that has no 16-bit values.
RawImage rawValuesOf(const RawFrame& frame);

}  // namespace keocam::cli
