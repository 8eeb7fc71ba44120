#include "fuzz/ReplyFrame.h"

namespace fuzz {
namespace {

constexpr uint8_t kProcess = 0x6E;
constexpr std::size_t kStatusAt = 1;
constexpr std::size_t kCodeAt = 3;
constexpr std::size_t kCountAt = 4;
constexpr std::size_t kHeaderCrcAt = 6;
constexpr std::size_t kShortest_bytes = 10;

// Four bits at a time: the polynomial's terms lie so far apart that multiplying four bits by it carries nothing.
unsigned int crcOf(const Bytes& bytes, std::size_t size) {
  unsigned int remainder = 0;
  const auto divide = [&remainder](unsigned int nibble) {
    remainder = (remainder << 4 & 0xFFFFU) ^ ((remainder >> 12 ^ nibble) * 0x1021U);
  };
  for (std::size_t i = 0; i < size; ++i) {
    divide(bytes[i] >> 4U);
    divide(bytes[i] & 0xFU);
  }
  return remainder;
}

unsigned int wordAt(const Bytes& bytes, std::size_t offset) {
  return static_cast<unsigned int>(bytes[offset]) * 256 + bytes[offset + 1];
}

void putWord(Bytes& bytes, std::size_t offset, std::size_t word) {
  bytes[offset] = static_cast<uint8_t>(word / 256 % 256);
  bytes[offset + 1] = static_cast<uint8_t>(word % 256);
}

}  // namespace

Bytes repaired(Bytes reply, const Repairs& repairs, uint8_t code) {
  if (reply.size() < kPayloadAt) return reply;
  if (repairs.code) {
    reply[0] = kProcess;
    reply[kCodeAt] = code;
  }
  const bool whole = reply.size() >= kShortest_bytes;
  if (repairs.length && whole) putWord(reply, kCountAt, reply.size() - kShortest_bytes);
  if (!repairs.crcs) return reply;
  putWord(reply, kHeaderCrcAt, crcOf(reply, kHeaderCrcAt));
  if (whole) putWord(reply, reply.size() - 2, crcOf(reply, reply.size() - 2));
  return reply;
}

ResponseStatuses statusIn(const Bytes& reply) {
  if (reply.size() <= kStatusAt) return UNKNOWN_ERROR;
  switch (reply[kStatusAt]) {
    case 0x00:
      return CAM_OK;
    case 0x03:
      return CAM_RANGE_ERROR;
    case 0x04:
      return CAM_CHECKSUM_ERROR;
    case 0x05:
      return CAM_UNDEFINED_PROCESS_ERROR;
    case 0x06:
      return CAM_UNDEFINED_FUNCTION_ERROR;
    case 0x07:
      return CAM_TIMEOUT_ERROR;
    case 0x09:
      return CAM_BYTE_COUNT_ERROR;
    case 0x0A:
      return CAM_FEATURE_NOT_ENABLED;
    default:
      return UNKNOWN_ERROR;
  }
}

bool isSound(const Bytes& reply, uint8_t code, std::size_t least_payload) {
  if (reply.size() < kShortest_bytes + least_payload) return false;
  const std::size_t end = reply.size() - 2;
  return reply[0] == kProcess && reply[kCodeAt] == code && wordAt(reply, kCountAt) == reply.size() - kShortest_bytes &&
         wordAt(reply, kHeaderCrcAt) == crcOf(reply, kHeaderCrcAt) && wordAt(reply, end) == crcOf(reply, end);
}

uint8_t payloadByte(const Bytes& reply, std::size_t index) {
  return kPayloadAt + index < reply.size() ? reply[kPayloadAt + index] : 0;
}

}  // namespace fuzz
