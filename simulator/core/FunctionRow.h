// One row of the function table: a setting, a reading or a command of the core, and how requests for it look.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace simulator {

/// The function codes by which the core itself knows a row; the others stand in the table as plain numbers.
enum class FunctionCode : uint8_t {
  NoOperation = 0,
  SetDefaults = 1,
  Reset = 2,
  FactoryDefaults = 3,
  GainMode = 10,
  FfcMode = 11,
  DoFfc = 12,
  FfcPeriod = 13,
  FfcTemperatureDelta = 14,
  InvertRevert = 17,
  DigitalOutput = 18,
  LensSlot = 30,
  TestPattern = 37,
  VideoStandard = 114,
  Radiometry = 142,
  RadiometricParameter = 229,
};

/// Selectors of FunctionCode::DigitalOutput by which settings are known; requests that set use others.
constexpr uint8_t kXpBusMode = 0x02;
constexpr uint8_t kLvdsMode = 0x04;
constexpr uint8_t kCmosBitDepth = 0x08;
constexpr uint8_t kLvdsBitDepth = 0x09;

/// Selectors of FunctionCode::Radiometry and FunctionCode::RadiometricParameter.
constexpr uint8_t kRadiometryResolution = 0x10;
constexpr uint8_t kRadiometryMode = 0x40;
constexpr uint8_t kEmissivity = 0x00;
constexpr uint8_t kAtmosphericTemperature = 0x05;
constexpr uint8_t kReflectedTemperature = 0x07;

enum class RowKind : uint8_t {
  Setting,  ///< kept by the core; read, and unless read-only written, by the host
  Reading,  ///< made when it is asked for
  Command,
  Memory,  ///< reads, writes or erases flash; the request has an address or a number in front of any data
};

enum class Reading : uint8_t {
  None,
  SerialNumbers,
  Versions,
  PartNumber,
  SensorTemperature,
  HousingTemperature,
  ShutterTemperature,
  FlashGeometry,
  LensSlot0Region,
  LensSlot1Region,
};

enum class MemoryOperation : uint8_t { None, Read, Write, Erase };

/// The bytes of a request in front of the value, which tell what of a function is meant.
struct RequestKey {
  std::array<uint8_t, 4> bytes{};
  std::size_t size = 0;
};

/// A setting's value: one to three 16-bit words, big-endian on the wire.
using SettingWords = std::array<uint16_t, 3>;

struct FunctionRow {
  uint8_t code = 0;
  RowKind kind = RowKind::Setting;
  std::string_view name{};
  std::string_view help{};  ///< what the value means, in which unit
  uint8_t selector = 0;     ///< tells rows with the same code apart
  bool writable = false;
  bool radiometric = false;  ///< only radiometric cores have it
  RequestKey get_key{};
  RequestKey set_key{};
  std::size_t answer_bytes = 0;     ///< payload of the answer to a read or a command
  std::size_t set_value_bytes = 0;  ///< behind the key; 1 means the low byte of the word
  std::size_t words = 0;            ///< of a setting
  int32_t minimum = 0;              ///< of every word
  int32_t maximum = 0;
  int32_t slow_maximum = INT32_MAX;  ///< of slow cores, where that is less
  bool has_sign = false;             ///< words are signed
  uint32_t excluded = 0;             ///< bit n: the value n is refused though it is in range
  uint16_t first_zero_bits = 0;      ///< bits of the first word that must be 0
  bool one_word_for_all = false;     ///< a request with one word sets all words to it
  SettingWords initial{};            ///< the factory's value
  Reading reading = Reading::None;
  MemoryOperation memory = MemoryOperation::None;
  std::size_t least_payload_bytes = 0;  ///< of a request for memory
  std::size_t most_payload_bytes = 0;

  constexpr FunctionRow selectedBy(uint8_t row_selector, RequestKey get, RequestKey set) const {
    FunctionRow row = *this;
    row.selector = row_selector;
    row.get_key = get;
    row.set_key = set;
    return row;
  }
  constexpr FunctionRow without(uint32_t excluded_bits) const {
    FunctionRow row = *this;
    row.excluded = excluded_bits;
    return row;
  }
  constexpr FunctionRow upToWhenSlow(int32_t most) const {
    FunctionRow row = *this;
    row.slow_maximum = most;
    return row;
  }
  constexpr FunctionRow readOnly() const {
    FunctionRow row = *this;
    row.writable = false;
    return row;
  }
  constexpr FunctionRow lowByte() const {
    FunctionRow row = *this;
    row.set_value_bytes = 1;
    return row;
  }
  constexpr FunctionRow forRadiometry() const {
    FunctionRow row = *this;
    row.radiometric = true;
    return row;
  }
};

constexpr FunctionRow wordRow(uint8_t code, std::string_view name, int32_t minimum, int32_t maximum, int32_t initial,
                              std::string_view help) {
  FunctionRow row;
  row.code = code;
  row.name = name;
  row.help = help;
  row.writable = true;
  row.answer_bytes = row.set_value_bytes = 2;
  row.words = 1;
  row.minimum = minimum;
  row.maximum = maximum;
  row.has_sign = minimum < 0;
  row.initial = {static_cast<uint16_t>(initial)};
  return row;
}

/// Two words, for high and for low gain, which one word of a request may set at once.
constexpr FunctionRow perGainRow(uint8_t code, std::string_view name, int32_t maximum, uint16_t high, uint16_t low,
                                 std::string_view help) {
  FunctionRow row = wordRow(code, name, 0, maximum, 0, help);
  row.answer_bytes = row.set_value_bytes = 4;
  row.words = 2;
  row.one_word_for_all = true;
  row.initial = {high, low};
  return row;
}

constexpr FunctionRow readingRow(uint8_t code, std::string_view name, std::size_t bytes, Reading reading,
                                 std::string_view help) {
  FunctionRow row;
  row.code = code;
  row.kind = RowKind::Reading;
  row.name = name;
  row.help = help;
  row.answer_bytes = bytes;
  row.reading = reading;
  return row;
}

constexpr FunctionRow memoryRow(uint8_t code, std::string_view name, MemoryOperation operation,
                                std::size_t least_payload_bytes, std::size_t most_payload_bytes,
                                std::string_view help) {
  FunctionRow row;
  row.code = code;
  row.kind = RowKind::Memory;
  row.name = name;
  row.help = help;
  row.memory = operation;
  row.least_payload_bytes = least_payload_bytes;
  row.most_payload_bytes = most_payload_bytes;
  return row;
}

constexpr FunctionRow commandRow(FunctionCode code, std::string_view name, std::size_t answer_bytes,
                                 std::string_view help) {
  FunctionRow row;
  row.code = static_cast<uint8_t>(code);
  row.kind = RowKind::Command;
  row.name = name;
  row.help = help;
  row.answer_bytes = answer_bytes;
  return row;
}

}  // namespace simulator
