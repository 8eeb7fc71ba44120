// One message of the thermal core's protocol, to the core and from it. All fields are big-endian.
//
//   offset  size  field
//   0       1     process code, 0x6E
//   1       1     status: 0 in a request, the core's answer in a reply
//   2       1     reserved, 0
//   3       1     function code
//   4       2     byte count N
//   6       2     CRC of bytes 0 to 5
//   8       N     payload
//   8 + N   2     CRC of bytes 0 to 7 + N
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "serial/ResponseStatuses.h"

namespace keocam {

constexpr std::size_t kFrameOverhead_bytes = 10;
constexpr std::size_t kStatusOffset = 1;
constexpr std::size_t kPayloadOffset = 8;
constexpr std::size_t kReplyRoom_bytes = 1024;

/// A request. A null payload stands for `size` zeros.
std::vector<uint8_t> makeRequest(uint8_t function_code, const uint8_t* payload, uint16_t size);

/// What the status byte of a reply means.
ResponseStatuses statusOf(uint8_t status_byte);

/// The text of a status, such as "CAM_OK"; "UNKNOWN_ERROR" for those above 7.
const char* textOf(ResponseStatuses status);

/// Where a reply is read into. Until a reply is in it, its payload is zeros and its status byte one that means
/// UNKNOWN_ERROR, so that a reply cut short of its status is no success.
struct ReplyBuffer {
  ReplyBuffer() { bytes[kStatusOffset] = kNoStatus; }

  static constexpr uint8_t kNoStatus = 0xFF;

  ResponseStatuses status() const { return statusOf(bytes[kStatusOffset]); }
  const uint8_t* payload() const { return bytes.data() + kPayloadOffset; }

  std::array<uint8_t, kReplyRoom_bytes> bytes{};
  uint32_t size = 0;  ///< bytes received
};

/// Whether the reply is what the frame layout says and answers `function_code` with at least `least_payload` bytes:
/// CAM_OK, else CAM_BYTE_COUNT_ERROR (too short, or of another length than it says), CAM_CHECKSUM_ERROR, or
/// UNKNOWN_ERROR (an answer to something else). It does not look at the status byte.
ResponseStatuses verifyReply(const ReplyBuffer& reply, uint8_t function_code, std::size_t least_payload);

}  // namespace keocam
