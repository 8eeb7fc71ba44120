// A receiver's counts, from Aravis' own.
#include "pv/aravis/StreamReceiver.h"

namespace keocam {

namespace {

// Headers of IP, UDP and the stream protocol in front of a packet's pixels.
constexpr uint32_t kPacketHeaders_bytes = 36;

// A frame's packets: its pixels, and one in front of them and one behind.
uint64_t packetsPerFrame(uint64_t payload_bytes, uint32_t packet_size) {
  if (packet_size <= kPacketHeaders_bytes) return 1;
  const uint64_t room_bytes = packet_size - kPacketHeaders_bytes;
  return (payload_bytes + room_bytes - 1) / room_bytes + 2;
}

}  // namespace

// Aravis counts the packets of frames that found no buffer, also while the pipeline is stopped and has none to give.
uint64_t StreamReceiver::framesWithoutBuffer(ArvStream* stream) const {
  if (!started_) return earlier_frames_without_buffer_;
  const uint64_t packets = arv_stream_get_info_uint64_by_name(stream, "n_underruns") - underruns_at_start_;
  return earlier_frames_without_buffer_ + packets / packetsPerFrame(payload_bytes_, packet_size_);
}

StreamStatistics StreamReceiver::readStatistics(ArvStream* stream) const {
  const auto count = [stream](const char* name) { return arv_stream_get_info_uint64_by_name(stream, name); };
  const auto difference = [](uint64_t all, uint64_t part) { return all > part ? all - part : 0; };
  StreamStatistics result;
  result.frames_complete = difference(count("n_completed_buffers"), wrong_size_);
  // What stopping cuts off was not lost on the way.
  result.frames_incomplete = difference(count("n_failures"), count("n_aborted")) + wrong_size_;
  result.frames_no_buffer = framesWithoutBuffer(stream);
  result.packets_received = count("n_received_packets");
  result.packets_missing = count("n_missing_packets");
  result.packets_resent = count("n_resent_packets");
  result.resend_requests = count("n_resend_requests");
  result.bytes_received = count("n_transferred_bytes");
  return result;
}

}  // namespace keocam
