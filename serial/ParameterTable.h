// One row per function code: how a read asks and what it returns, how a write encodes its value and what it accepts.
// This is the library's only list of codes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "serial/FunctionCodes.h"

namespace keocam {

/// What tells several values under one function code apart.
enum class Selector : uint8_t { None, DigitalOutput, TemperatureSensor, Radiometry, RadiometricParameter };

/// Word: the first two bytes of the reply as a big-endian value, handed to the caller in the host's order.
/// Raw: bytes handed to the caller as they come.
enum class ReplyForm : uint8_t { Word, Raw };

enum class ReadAccess : uint8_t {
  Readable,
  Refused,  ///< CAM_NOT_READABLE
  Unknown,  ///< UNKNOWN_ERROR
};

struct Reading {
  ReadAccess access;
  ReplyForm form;
  uint8_t reply_bytes;
};

enum class WriteAccess : uint8_t {
  Writable,
  Refused,  ///< CAM_NOT_WRITABLE
  Unknown,  ///< CAM_UNDEFINED_FUNCTION_ERROR
};

/// How the caller's value goes into the payload, after what the selector puts before it.
enum class ValueForm : uint8_t {
  None,  ///< a command without argument
  Byte,  ///< one byte
  Word,  ///< a 16-bit value in the host's order, sent big-endian
  Raw,   ///< bytes as they lie in memory
};

struct Writing {
  WriteAccess access;
  ValueForm form;
  uint8_t value_bytes;
  bool zero_first;            ///< a byte 0x00 goes before the value
  uint16_t highest;           ///< the largest value accepted; of Byte and Word
  uint16_t gaps;              ///< bit n: the value n is not accepted
  bool faults_when_in_range;  ///< SetParameter's check is inverted, see there
};

struct ParameterRow {
  FunctionCodes code;
  Selector selector;
  Reading reading;
  Writing writing;
};

/// What a selector's value puts into the payload of a read, and before the value of a write.
struct SelectorBytes {
  std::array<uint8_t, 2> read;
  std::array<uint8_t, 3> write_prefix;
  uint8_t write_prefix_bytes;
};

/// The row of a code, or null.
const ParameterRow* findParameter(FunctionCodes code);

/// The bytes of a selector's value, or null if it has no such value.
const SelectorBytes* findSelectorBytes(Selector selector, uint32_t value);

/// All rows, by ascending code.
struct ParameterRows {
  const ParameterRow* first;
  std::size_t count;
  const ParameterRow* begin() const { return first; }
  const ParameterRow* end() const { return first + count; }
};
ParameterRows parameterRows();

}  // namespace keocam
