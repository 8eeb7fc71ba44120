// The core's replies as the fuzz target understands them: written apart from the library, to judge what it says.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "serial/ResponseStatuses.h"

namespace fuzz {

using Bytes = std::vector<uint8_t>;

constexpr std::size_t kPayloadAt = 8;

/// What is mended in a reply before the library sees it. Mutation alone would hardly ever get past a checksum.
struct Repairs {
  bool code = false;    ///< it answers the code that was asked
  bool length = false;  ///< its byte count is that of the bytes there are
  bool crcs = false;    ///< both CRCs fit what they are of
};

/// A reply of fewer than 10 bytes has no room for all fields; those that it has room for are mended.
Bytes repaired(Bytes reply, const Repairs& repairs, uint8_t code);

/// What the status byte says; UNKNOWN_ERROR for a reply too short to have one.
ResponseStatuses statusIn(const Bytes& reply);

/// Whether every field but the status is right for an answer to `code` with at least `least_payload` bytes.
bool isSound(const Bytes& reply, uint8_t code, std::size_t least_payload);

/// Byte `index` of the payload; 0 where the reply ends before it. Bytes of the CRC behind a short payload count as
/// payload: only checked reads know where it ends.
uint8_t payloadByte(const Bytes& reply, std::size_t index);

}  // namespace fuzz
