// The control protocol's datagrams: command headers in, acknowledges out. Knows lengths and codes, no registers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "simulator/Bytes.h"

namespace simulator {

constexpr uint16_t kGvcpPort = 3956;
constexpr std::size_t kGvcpHeaderBytes = 8;
constexpr std::size_t kGvcpMaximumPayloadBytes = 540;
constexpr uint8_t kGvcpKey = 0x42;

enum class GvcpCommand : uint16_t {
  Discovery = 0x0002,
  ForceIp = 0x0004,
  PacketResend = 0x0040,
  ReadRegister = 0x0080,
  WriteRegister = 0x0082,
  ReadMemory = 0x0084,
  WriteMemory = 0x0086,
};

constexpr uint16_t kPendingAckCommand = 0x0089;

enum class Status : uint16_t {
  Success = 0x0000,
  NotImplemented = 0x8001,
  InvalidParameter = 0x8002,
  InvalidAddress = 0x8003,
  WriteProtect = 0x8004,
  BadAlignment = 0x8005,
  AccessDenied = 0x8006,
  Busy = 0x8007,
  PacketUnavailable = 0x800C,
  InvalidHeader = 0x800E,
};

struct GvcpRequest {
  GvcpCommand command{};  ///< may be a code that GvcpCommand does not name
  bool ack_required = false;
  bool extended_ids = false;  ///< PACKETRESEND only: 64-bit block ids
  uint16_t id = 0;
  const uint8_t* payload = nullptr;  ///< points into the datagram
  std::size_t payload_bytes = 0;
  bool valid = false;  ///< length field and datagram agree and the id is not 0
};

/// Reads a datagram's header. Empty when it is no command: too short for a header, or another key. A command whose
/// header contradicts the datagram comes back with `valid` false, so that it can still be refused by id.
std::optional<GvcpRequest> parseGvcp(const uint8_t* datagram, std::size_t size);

/// The acknowledge to `request`, with the command code one above the request's.
Bytes buildAck(const GvcpRequest& request, Status status, const Bytes& payload);

/// "Still working, wait this much longer."
Bytes buildPendingAck(uint16_t request_id, uint16_t wait_ms);

struct ResendRequest {
  uint64_t block_id = 0;
  uint32_t first_packet = 0;
  uint32_t last_packet = 0;  ///< included
};

/// Empty when the payload's length is wrong for its flags, or the range is upside down.
std::optional<ResendRequest> parseResend(const GvcpRequest& request);

struct ForceIpRequest {
  uint16_t mac_high = 0;
  uint32_t mac_low = 0;
  uint32_t address = 0;
};

std::optional<ForceIpRequest> parseForceIp(const GvcpRequest& request);

}  // namespace simulator
