// The stream protocol's packets: a frame is a leader, payload packets of equal size, and a trailer.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "simulator/Bytes.h"
#include "simulator/GvcpPacket.h"
#include "simulator/Scene.h"

namespace simulator {

constexpr std::size_t kGvspHeaderBytes = 8;
/// IP and UDP headers, which the packet size register counts.
constexpr std::size_t kIpUdpHeaderBytes = 28;
constexpr std::size_t kGvspOverheadBytes = kIpUdpHeaderBytes + kGvspHeaderBytes;

enum class GvspFormat : uint8_t { Leader = 1, Trailer = 2, Payload = 3 };

using GvspHeader = std::array<uint8_t, kGvspHeaderBytes>;

/// One frame as it is sent and kept for resending; immutable.
struct StreamFrame {
  uint16_t block_id = 0;
  uint64_t timestamp_ns = 0;
  ImageSize size;
  std::size_t packet_data_bytes = 0;  ///< of every payload packet but the last
  std::vector<uint16_t> pixels;

  std::size_t payloadBytes() const { return pixels.size() * sizeof(uint16_t); }
  /// Leader and trailer included.
  uint32_t packetCount() const;
  uint32_t trailerId() const { return packetCount() - 1; }
};

/// A packet ready to be sent: a header block of its own, followed by bytes that belong to the frame.
struct StreamPacket {
  std::array<uint8_t, kGvspHeaderBytes + 36> head{};
  std::size_t head_bytes = 0;
  const uint8_t* data = nullptr;
  std::size_t data_bytes = 0;
};

/// Packet `packet_id` of the frame, which must have it. The result points into the frame.
StreamPacket makePacket(const StreamFrame& frame, uint32_t packet_id);

/// "This packet is no longer available", with no data.
GvspHeader makeUnavailable(uint16_t block_id, uint32_t packet_id);

}  // namespace simulator
