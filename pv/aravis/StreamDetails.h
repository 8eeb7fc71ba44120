// What is known of a stream and its frames beyond the pixels: figures for tools and logs.
#pragma once

#include <cstdint>

class PvBuffer;
class PvPipeline;
class PvStream;

namespace keocam {

/// Counts since the stream was opened.
struct StreamStatistics {
  uint64_t frames_complete = 0;    ///< whole frames received
  uint64_t frames_incomplete = 0;  ///< frames given up because data were missing or of a wrong size
  uint64_t frames_no_buffer = 0;   ///< frames lost because no buffer was free
  uint64_t packets_received = 0;
  uint64_t packets_missing = 0;  ///< never arrived, resends included
  uint64_t packets_resent = 0;   ///< arrived by resend
  uint64_t resend_requests = 0;
  uint64_t bytes_received = 0;
};

/// Safe from any thread while the stream lives. Zeros for a closed stream.
StreamStatistics statisticsOf(const PvStream& stream);

/// Bytes in a packet of this stream, IP and UDP headers included; 0 for a closed stream.
uint32_t packetSizeOf(const PvStream& stream);

struct FrameDetails {
  uint64_t block_id = 0;             ///< the device's number of the frame: 1 to 65535, then 1 again
  uint64_t device_timestamp_ns = 0;  ///< the device's clock, nanoseconds
  uint64_t host_timestamp_ns = 0;  ///< this host's system clock when the frame began to arrive, nanoseconds since 1970
  uint32_t pixel_format = 0;       ///< the GenICam code, 0x01100025 for Mono14
  uint32_t width = 0;
  uint32_t height = 0;
  uint32_t size = 0;  ///< bytes of pixel data
};

/// Details of a frame that the application holds, between RetrieveNextBuffer and ReleaseBuffer.
FrameDetails detailsOf(const PvBuffer& buffer);

/// Settings of a stream that the classes of the seam have no operation for. They apply to streams opened afterwards by
/// this process; set them before connecting.
struct StreamOptions {
  /// Receive through a packet socket: less processor time, but it needs CAP_NET_RAW and sees nothing on loopback.
  bool packet_socket = false;
};
void setStreamOptions(const StreamOptions& options);

}  // namespace keocam
