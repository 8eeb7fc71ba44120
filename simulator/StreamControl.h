// The seam between the camera's registers and its stream channel.
#pragma once

#include <cstdint>

#include "simulator/GvcpPacket.h"
#include "simulator/Scene.h"

namespace simulator {

/// What the registers say about the stream, as one value.
struct StreamSettings {
  uint32_t destination_ip = 0;  ///< host byte order; 0: nowhere
  uint16_t destination_port = 0;
  uint32_t packet_size_bytes = 1500;  ///< IP, UDP and stream headers included
  bool do_not_fragment = false;
  uint64_t packet_delay_ns = 0;
  ImageSize window;
  double frame_rate_hz = 30.0;
  TestPattern pattern = TestPattern::Off;

  bool open() const { return destination_ip != 0 && destination_port != 0; }
};

/// What the control side asks of the stream channel. Calls come from one thread at a time.
class StreamControl {
 public:
  virtual ~StreamControl() = default;

  /// Takes effect with the next frame.
  virtual void apply(const StreamSettings& settings) = 0;

  /// The next frame is block 1 again, and nothing older is kept for resending.
  virtual void restartBlockIds() = 0;

  /// Sends frames until stopped, or until `frame_limit` of them if that is not 0. Leaves a running acquisition alone.
  virtual void startAcquisition(uint64_t frame_limit) = 0;

  /// Returns when no further packet of the acquisition will be sent.
  virtual void stopAcquisition() = 0;
  virtual bool acquiring() const = 0;

  virtual void sendTestPacket() = 0;
  virtual void resend(const ResendRequest& request) = 0;
};

}  // namespace simulator
