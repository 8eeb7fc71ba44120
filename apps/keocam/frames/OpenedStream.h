// A stream that is open on a connected device, with nothing changed on the camera but where it streams to.
#pragma once

#include <memory>

#include "PvDevice.h"
#include "PvDeviceInfo.h"
#include "PvPipeline.h"
#include "PvStream.h"
#include "camera/Camera.h"

namespace keocam::cli {

class OpenedStream {
 public:
  /// Opens a stream on the connected device, which must outlive this object as must `info`. Throws CommandFailure if
  /// there is none.
  OpenedStream(PvDevice& device, const PvDeviceInfo& info);

  /// The library's operations on the stream: its acquisition and its frames. Those of the core are not to be used: it
  /// has none. It hands out all frames, also those of cameras that Camera::Connect() limits.
  Camera& camera() { return camera_; }
  const PvStream& stream() const { return *stream_; }

 private:
  // The library's steps of an acquisition, on a device that is connected already: connecting would bring the core to
  // its defaults.
  Camera camera_;
  std::unique_ptr<PvStream, void (*)(PvStream*)> stream_;
  std::unique_ptr<PvPipeline> pipeline_;
};

}  // namespace keocam::cli
