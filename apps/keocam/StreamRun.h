// The loop that fetches a connected camera's frames and accounts for them.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "apps/keocam/StopSignal.h"
#include "apps/keocam/StreamLimits.h"
#include "apps/keocam/frames/FrameStatistics.h"
#include "apps/keocam/frames/RawFrame.h"
#include "camera/Camera.h"
#include "pv/aravis/StreamDetails.h"

namespace keocam::cli {

enum class StreamEnd { FramesReached, DurationReached, Stopped, NoFrames, CameraLost };

struct StreamResult {
  StreamEnd end = StreamEnd::Stopped;
  StreamPeriod total;
  uint64_t missing_block_ids = 0;
  double duration_s = 0.0;                 ///< from the start of the acquisition to its end
  StreamStatistics network;                ///< the receiver's own counts
  uint32_t packet_size_bytes = 0;          ///< as negotiated
  FrameDetails last_frame;                 ///< zeros without frames
  std::vector<uint8_t> last_frame_pixels;  ///< empty unless asked for
};

/// Starts the acquisition of a camera whose stream is open, fetches frames until a limit is reached, `stop` is
/// requested, or nothing comes any more, and stops the acquisition. `report` gets every second what happened in it, and
/// what happened in all. With `keep_last_frame` the result holds a copy of the last frame's pixels.
StreamResult runStream(Camera& camera, const StreamLimits& limits, bool keep_last_frame, const StopSignal& stop,
                       const std::function<void(const StreamPeriod& second, const StreamPeriod& all)>& report);

}  // namespace keocam::cli
