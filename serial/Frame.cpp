#include "serial/Frame.h"

#include <algorithm>

#include "serial/Crc16.h"

namespace keocam {
namespace {

constexpr uint8_t kProcessCode = 0x6E;
constexpr std::size_t kFunctionOffset = 3;
constexpr std::size_t kByteCountOffset = 4;
constexpr std::size_t kHeaderCrcOffset = 6;

// Indexed by the status byte; the core does not use the bytes that have no name of their own.
constexpr std::array<ResponseStatuses, 11> kStatuses = {
    CAM_OK,
    UNKNOWN_ERROR,
    UNKNOWN_ERROR,
    CAM_RANGE_ERROR,
    CAM_CHECKSUM_ERROR,
    CAM_UNDEFINED_PROCESS_ERROR,
    CAM_UNDEFINED_FUNCTION_ERROR,
    CAM_TIMEOUT_ERROR,
    UNKNOWN_ERROR,
    CAM_BYTE_COUNT_ERROR,
    CAM_FEATURE_NOT_ENABLED,
};

// Indexed by ResponseStatuses. The host's own refusals have no text of their own, which applications rely on.
constexpr std::array<const char*, 8> kTexts = {
    "CAM_OK",
    "CAM_RANGE_ERROR",
    "CAM_CHECKSUM_ERROR",
    "CAM_UNDEFINED_PROCESS_ERROR",
    "CAM_UNDEFINED_FUNCTION_ERROR",
    "CAM_TIMEOUT_ERROR",
    "CAM_BYTE_COUNT_ERROR",
    "CAM_FEATURE_NOT_ENABLED",
};

void storeBigEndian(uint16_t value, uint8_t* to) {
  to[0] = static_cast<uint8_t>(value >> 8);
  to[1] = static_cast<uint8_t>(value & 0xFF);
}

uint16_t bigEndian(const uint8_t* from) { return static_cast<uint16_t>(from[0] << 8 | from[1]); }

bool crcFollows(const uint8_t* data, std::size_t size) { return crc16(data, size) == bigEndian(data + size); }

}  // namespace

std::vector<uint8_t> makeRequest(uint8_t function_code, const uint8_t* payload, uint16_t size) {
  std::vector<uint8_t> frame(size + kFrameOverhead_bytes);
  frame[0] = kProcessCode;
  frame[kFunctionOffset] = function_code;
  storeBigEndian(size, &frame[kByteCountOffset]);
  storeBigEndian(crc16(frame.data(), kHeaderCrcOffset), &frame[kHeaderCrcOffset]);
  if (payload != nullptr) std::copy_n(payload, size, frame.begin() + kPayloadOffset);
  const std::size_t crc_offset = kPayloadOffset + size;
  storeBigEndian(crc16(frame.data(), crc_offset), &frame[crc_offset]);
  return frame;
}

ResponseStatuses statusOf(uint8_t status_byte) {
  return status_byte < kStatuses.size() ? kStatuses[status_byte] : UNKNOWN_ERROR;
}

const char* textOf(ResponseStatuses status) { return status < kTexts.size() ? kTexts[status] : "UNKNOWN_ERROR"; }

ResponseStatuses verifyReply(const ReplyBuffer& reply, uint8_t function_code, std::size_t least_payload) {
  const uint8_t* const bytes = reply.bytes.data();
  if (reply.size < kFrameOverhead_bytes || reply.size > reply.bytes.size()) return CAM_BYTE_COUNT_ERROR;
  if (!crcFollows(bytes, kHeaderCrcOffset)) return CAM_CHECKSUM_ERROR;
  if (bytes[0] != kProcessCode || bytes[kFunctionOffset] != function_code) return UNKNOWN_ERROR;
  const std::size_t payload_size = bigEndian(bytes + kByteCountOffset);
  if (payload_size < least_payload || reply.size != payload_size + kFrameOverhead_bytes) return CAM_BYTE_COUNT_ERROR;
  return crcFollows(bytes, kPayloadOffset + payload_size) ? CAM_OK : CAM_CHECKSUM_ERROR;
}

}  // namespace keocam
