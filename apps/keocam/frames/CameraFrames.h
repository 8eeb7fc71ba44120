// Frames of a connected camera, for as long as a scope lasts. Nothing but the acquisition changes on the camera.
#pragma once

#include <memory>
#include <optional>

#include "PvDevice.h"
#include "PvDeviceInfo.h"
#include "PvPipeline.h"
#include "PvStream.h"
#include "apps/keocam/frames/RawFrame.h"
#include "camera/Camera.h"
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

  StreamStatistics statistics() const { return statisticsOf(*stream_); }
  uint32_t packetSize_bytes() const { return packetSizeOf(*stream_); }

 private:
  // The library's steps of an acquisition, on a device that is connected already: connecting would bring the core to
  // its defaults.
  Camera camera_;
  std::unique_ptr<PvStream, void (*)(PvStream*)> stream_;
  std::unique_ptr<PvPipeline> pipeline_;
};

}  // namespace keocam::cli
