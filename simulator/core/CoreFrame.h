// One frame of the core's serial protocol, as bytes and as parts.
#pragma once

#include <cstddef>
#include <cstdint>

#include "simulator/Bytes.h"

namespace simulator {

/// The second byte of an answer.
enum class CoreStatus : uint8_t {
  Ok = 0x00,
  RangeError = 0x03,
  ChecksumError = 0x04,
  UndefinedProcess = 0x05,
  UndefinedFunction = 0x06,
  ByteCountError = 0x09,
  FeatureNotEnabled = 0x0A,
};

/// Where the parts of a frame lie; numbers of two bytes are big-endian.
namespace frame {
constexpr std::size_t kProcess = 0;
constexpr std::size_t kStatus = 1;
constexpr std::size_t kReserved = 2;
constexpr std::size_t kFunction = 3;
constexpr std::size_t kByteCount = 4;
constexpr std::size_t kHeaderCrc = 6;  ///< of all bytes before it
constexpr std::size_t kPayload = 8;
constexpr std::size_t kHeaderBytes = 8;
constexpr std::size_t kCrcBytes = 2;  ///< of all bytes before it, the header's check sum included; ends the frame
constexpr std::size_t kOverheadBytes = kHeaderBytes + kCrcBytes;
}  // namespace frame

constexpr uint8_t kProcessCode = 0x6E;

/// A frame with both check sums. The status is a plain byte, so that faults can send what no core would.
Bytes encodeFrame(uint8_t function, uint8_t status, const Bytes& payload);

}  // namespace simulator
