#include "simulator/GvcpPacket.h"

#include <algorithm>

namespace simulator {
namespace {

constexpr uint8_t kAckRequiredFlag = 0x01;
constexpr uint8_t kExtendedIdsFlag = 0x10;
constexpr uint32_t kPacketIdMask = 0x00FFFFFF;
constexpr std::size_t kResendBytes = 12;
constexpr std::size_t kExtendedResendBytes = 20;
constexpr std::size_t kForceIpBytes = 56;

}  // namespace

std::optional<GvcpRequest> parseGvcp(const uint8_t* datagram, std::size_t size) {
  if (size < kGvcpHeaderBytes || datagram[0] != kGvcpKey) return std::nullopt;
  GvcpRequest request;
  request.command = static_cast<GvcpCommand>(loadU16(datagram + 2));
  request.ack_required = (datagram[1] & kAckRequiredFlag) != 0;
  request.extended_ids = (datagram[1] & kExtendedIdsFlag) != 0;
  request.id = loadU16(datagram + 6);
  request.payload = datagram + kGvcpHeaderBytes;
  request.payload_bytes = size - kGvcpHeaderBytes;
  request.valid = loadU16(datagram + 4) == request.payload_bytes && request.id != 0 &&
                  request.payload_bytes <= kGvcpMaximumPayloadBytes;
  return request;
}

Bytes buildAck(const GvcpRequest& request, Status status, const Bytes& payload) {
  Bytes ack;
  ack.reserve(kGvcpHeaderBytes + payload.size());
  appendU16(ack, static_cast<uint16_t>(status));
  appendU16(ack, static_cast<uint16_t>(static_cast<uint16_t>(request.command) + 1));
  appendU16(ack, static_cast<uint16_t>(payload.size()));
  appendU16(ack, request.id);
  ack.insert(ack.end(), payload.begin(), payload.end());
  return ack;
}

Bytes buildPendingAck(uint16_t request_id, uint16_t wait_ms) {
  Bytes ack;
  appendU16(ack, static_cast<uint16_t>(Status::Success));
  appendU16(ack, kPendingAckCommand);
  appendU16(ack, 4);
  appendU16(ack, request_id);
  appendU16(ack, 0);
  appendU16(ack, wait_ms);
  return ack;
}

std::optional<ResendRequest> parseResend(const GvcpRequest& request) {
  if (request.payload_bytes != (request.extended_ids ? kExtendedResendBytes : kResendBytes)) return std::nullopt;
  ResendRequest resend;
  if (request.extended_ids) {
    resend.block_id = loadU64(request.payload + 12);
    resend.first_packet = loadU32(request.payload + 4);
    resend.last_packet = loadU32(request.payload + 8);
  } else {
    // The upper half of the first word is the stream channel; there is only channel 0, so others name no block here.
    resend.block_id = loadU32(request.payload);
    resend.first_packet = loadU32(request.payload + 4) & kPacketIdMask;
    resend.last_packet = loadU32(request.payload + 8) & kPacketIdMask;
  }
  if (resend.first_packet > resend.last_packet) return std::nullopt;
  return resend;
}

std::optional<ForceIpRequest> parseForceIp(const GvcpRequest& request) {
  if (request.payload_bytes != kForceIpBytes) return std::nullopt;
  return ForceIpRequest{loadU16(request.payload + 2), loadU32(request.payload + 4), loadU32(request.payload + 20)};
}

}  // namespace simulator
