#include "simulator/GvspPacket.h"

#include <algorithm>

namespace simulator {
namespace {

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "pixels are sent as they lie in memory, low byte first");

constexpr uint16_t kPayloadTypeImage = 1;
constexpr std::size_t kLeaderBytes = 36;
constexpr std::size_t kTrailerBytes = 8;
constexpr uint32_t kPixelFormat = 0x01100025;

void storeHeader(uint8_t* at, Status status, uint16_t block_id, GvspFormat format, uint32_t packet_id) {
  storeU16(at, static_cast<uint16_t>(status));
  storeU16(at + 2, block_id);
  storeU32(at + 4, (static_cast<uint32_t>(format) << 24) | packet_id);
}

}  // namespace

uint32_t StreamFrame::packetCount() const {
  return static_cast<uint32_t>((payloadBytes() + packet_data_bytes - 1) / packet_data_bytes) + 2;
}

StreamPacket makePacket(const StreamFrame& frame, uint32_t packet_id) {
  StreamPacket packet;
  uint8_t* const body = packet.head.data() + kGvspHeaderBytes;
  GvspFormat format = GvspFormat::Payload;
  packet.head_bytes = kGvspHeaderBytes;
  if (packet_id == 0) {
    format = GvspFormat::Leader;
    packet.head_bytes += kLeaderBytes;
    storeU16(body + 2, kPayloadTypeImage);
    storeU64(body + 4, frame.timestamp_ns);
    storeU32(body + 12, kPixelFormat);
    storeU32(body + 16, frame.size.width);
    storeU32(body + 20, frame.size.height);
  } else if (packet_id == frame.trailerId()) {
    format = GvspFormat::Trailer;
    packet.head_bytes += kTrailerBytes;
    storeU16(body + 2, kPayloadTypeImage);
    storeU32(body + 4, frame.size.height);
  } else {
    const std::size_t offset = (packet_id - 1) * frame.packet_data_bytes;
    packet.data = reinterpret_cast<const uint8_t*>(frame.pixels.data()) + offset;
    packet.data_bytes = std::min(frame.packet_data_bytes, frame.payloadBytes() - offset);
  }
  storeHeader(packet.head.data(), Status::Success, frame.block_id, format, packet_id);
  return packet;
}

GvspHeader makeUnavailable(uint16_t block_id, uint32_t packet_id) {
  GvspHeader header{};
  storeHeader(header.data(), Status::PacketUnavailable, block_id, GvspFormat::Payload, packet_id & 0x00FFFFFF);
  return header;
}

}  // namespace simulator
