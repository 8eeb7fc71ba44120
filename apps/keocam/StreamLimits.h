// How long to stream.
#pragma once

#include <cstdint>
#include <optional>

namespace keocam::cli {

/// Whichever is reached first. Without a limit the stream runs until a signal.
struct StreamLimits {
  std::optional<uint64_t> frames;
  std::optional<double> duration_s;
  double timeout_s = 5.0;  ///< without a frame; noticed up to one second late
};

}  // namespace keocam::cli
