// Frames of a connected camera, for as long as a scope lasts. Nothing but the acquisition changes on the camera.
#pragma once

#include <optional>
#include <vector>

#include "apps/keocam/frames/OpenedStream.h"
#include "apps/keocam/frames/RawFrame.h"
#include "pv/aravis/StreamDetails.h"

namespace keocam::cli {

struct ReceivedFrame {
  FrameDetails details;
  std::vector<uint8_t> bytes;
};

class CameraFrames {
 public:
  /// Opens a stream on the connected device, which must outlive this object as must `info`, and starts the
  /// acquisition. Throws CommandFailure if there is no stream.
  CameraFrames(PvDevice& device, const PvDeviceInfo& info);

  /// Stops the acquisition and closes the stream.
  ~CameraFrames();
  CameraFrames(const CameraFrames&) = delete;
  CameraFrames& operator=(const CameraFrames&) = delete;

  /// The next frame, waited for up to a second. Those that nobody fetches in time are dropped, the latest ones.
  std::optional<ReceivedFrame> next();

  StreamStatistics statistics() const { return statisticsOf(opened_.stream()); }
  uint32_t packetSize_bytes() const { return packetSizeOf(opened_.stream()); }

 private:
  OpenedStream opened_;
};

}  // namespace keocam::cli
