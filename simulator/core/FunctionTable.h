// Every function of the core, one row each; requests, settings, documentation and tests are made from it.
#pragma once

#include <array>
#include <cstddef>

#include "simulator/core/FunctionRow.h"

namespace simulator {

constexpr std::size_t kFunctionRowCount = 57;

constexpr FunctionRow digitalOutputRow(std::string_view name, uint8_t get, uint8_t set, int32_t maximum,
                                       int32_t initial, std::string_view help) {
  return wordRow(18, name, 0, maximum, initial, help).lowByte().selectedBy(get, {{get, 0x00}, 2}, {{set}, 1});
}

constexpr FunctionRow radiometryRow(std::string_view name, uint8_t selector, std::string_view help) {
  return wordRow(142, name, 0, 1, 0, help)
      .selectedBy(selector, {{0x00, selector}, 2}, {{0x00, selector}, 2})
      .forRadiometry();
}

constexpr FunctionRow objectParameterRow(std::string_view name, uint8_t selector, int32_t minimum, int32_t maximum,
                                         int32_t initial, std::string_view help) {
  return wordRow(229, name, minimum, maximum, initial, help)
      .selectedBy(selector, {{0x01, selector}, 2}, {{0x01, selector}, 2})
      .forRadiometry();
}

constexpr FunctionRow temperatureRow(std::string_view name, uint8_t selector, Reading reading, std::string_view help) {
  return readingRow(32, name, 2, reading, help).selectedBy(selector, {{0x00, selector}, 2}, {});
}

/// A unit flag and a byte in the first word, then two more words.
constexpr FunctionRow isothermRow() {
  FunctionRow row = wordRow(35, "isotherm-thresholds", 0, 0xFFFF, 0,
                            "0x80 or 0x00 for the unit, the lower threshold in a byte, the middle and the upper one "
                            "in a word each. Any threshold is taken, as hosts change one after the other.");
  row.answer_bytes = row.set_value_bytes = 6;
  row.words = 3;
  row.first_zero_bits = 0x7F00;
  row.initial = {0x8000 | 90, 95, 98};
  return row;
}

// Bounds are the core's own. Where a host does not check a value, they are those that make sense for the picture:
// a shift of brightness by up to the 14-bit range either way, a threshold byte with an automatic flag above it.
inline constexpr std::array<FunctionRow, kFunctionRowCount> kFunctionRows{{
    commandRow(FunctionCode::NoOperation, "no-operation", 0, "Does nothing."),
    commandRow(FunctionCode::SetDefaults, "set-defaults", 0, "The present settings become the power-on settings."),
    commandRow(FunctionCode::Reset, "reset", 0, "Answers, is silent, and is back with its power-on settings."),
    commandRow(FunctionCode::FactoryDefaults, "factory-defaults", 0,
               "Present and power-on settings become the factory's."),
    readingRow(4, "serial-numbers", 8, Reading::SerialNumbers, "Of the core and of its sensor, 4 bytes each."),
    readingRow(5, "versions", 8, Reading::Versions, "Software major and minor, firmware major and minor."),
    wordRow(10, "gain-mode", 0, 3, 2, "1 is low gain; all others are high gain."),
    wordRow(11, "ffc-mode", 0, 2, 1, "0 on command only, 1 automatic, 2 by an external signal."),
    commandRow(FunctionCode::DoFfc, "do-ffc", 2, "Closes the shutter; the answer is a word of 0."),
    perGainRow(13, "ffc-period", 30000, 7200, 1800, "Frames between automatic corrections; 0 is never."),
    perGainRow(14, "ffc-temperature-delta", 10, 2, 1, "Degrees Celsius that start an automatic correction; 0 is none."),
    wordRow(15, "analog-video", 0, 3, 0, "0 on, 2 off."),
    wordRow(16, "palette", 0, 29, 0, "Number of the colour palette."),
    wordRow(17, "invert-revert", 0, 3, 0, "Bit 0 upside down, bit 1 left to right."),
    digitalOutputRow("xp-bus-mode", kXpBusMode, 0x03, 2, 0, "0 off, 2 parallel video."),
    digitalOutputRow("lvds-mode", kLvdsMode, 0x05, 1, 1, "Serial video on or off."),
    digitalOutputRow("cmos-bit-depth", kCmosBitDepth, 0x06, 3, 0, "0 is 14 bits, 1 leaves the upper 8."),
    digitalOutputRow("lvds-bit-depth", kLvdsBitDepth, 0x07, 1, 0, "0 is 14 bits, 1 is 8."),
    wordRow(19, "agc-type", 0, 5, 0, "Kind of automatic gain control."),
    wordRow(20, "contrast", 0, 255, 32, "Contrast."),
    wordRow(21, "brightness", 0, 16383, 8192, "Brightness, in counts."),
    wordRow(24, "brightness-bias", -16383, 16383, 0, "Shift of brightness, in counts."),
    wordRow(30, "lens-slot", 0, 1, 0, "The slot of the flash whose table corrects the picture."),
    wordRow(31, "spot-meter-mode", 0, 2, 0, "0 off, 1 and 2 units."),
    temperatureRow("sensor-temperature", 0x00, Reading::SensorTemperature, "Tenths of a degree Celsius."),
    temperatureRow("housing-temperature", 0x0A, Reading::HousingTemperature, "Hundredths of a degree Celsius."),
    wordRow(33, "external-sync", 0, 2, 0, "0 off, 1 follows, 2 leads."),
    wordRow(34, "function-34", 0, 1, 0, "A switch without effect."),
    isothermRow(),
    wordRow(37, "test-pattern", 0, 8, 0, "A picture of the core's own; 2 and 7 do not exist.")
        .without(1U << 2 | 1U << 7),
    wordRow(38, "video-color-mode", 0, 1, 0, "0 monochrome, 1 colour."),
    wordRow(42, "function-42", 0, 0, 0, "A word without meaning.").readOnly(),
    wordRow(43, "spot-display-mode", 0, 3, 0, "How the spot is shown."),
    wordRow(44, "dde-gain", 0, 255, 17, "Detail enhancement."),
    wordRow(60, "ffc-warn-time", 0, 600, 60, "Frames from the warning to the correction."),
    wordRow(62, "agc-filter", 0, 255, 64, "Damping of automatic gain control."),
    wordRow(63, "plateau-level", 0, 4095, 250, "Plateau of automatic gain control."),
    readingRow(77, "shutter-temperature", 2, Reading::ShutterTemperature, "Hundredths of a degree Celsius."),
    wordRow(85, "agc-midpoint", 0, 255, 127, "Middle of automatic gain control."),
    readingRow(102, "part-number", 32, Reading::PartNumber, "Text, filled up with '^'."),
    wordRow(106, "max-agc-gain", 0, 255, 12, "Bound of automatic gain control."),
    wordRow(114, "video-standard", 0, 5, 0, "Timing of analog video; only fast cores have 4 and 5.").upToWhenSlow(3),
    radiometryRow("radiometry-resolution", kRadiometryResolution, "1 is the high resolution."),
    radiometryRow("radiometry-mode", kRadiometryMode, "1 makes pixels linear in temperature."),
    memoryRow(210, "read-memory", MemoryOperation::Read, 6, 6, "Address and length, 4 and 2 bytes; 1 to 256 bytes."),
    memoryRow(211, "write-memory", MemoryOperation::Write, 5, 132, "Address, 4 bytes, and 1 to 128 bytes."),
    memoryRow(212, "erase-block", MemoryOperation::Erase, 2, 2, "Block number; the answer comes when it is done."),
    readingRow(213, "flash-geometry", 8, Reading::FlashGeometry, "Base address and bytes of a block, 4 bytes each.")
        .selectedBy(0x00, {{0xFF, 0xFF}, 2}, {}),
    readingRow(214, "lens-slot-0-region", 8, Reading::LensSlot0Region, "Address and bytes of the table, 4 bytes each.")
        .selectedBy(0x00, {{0x00, 0x00, 0x00, 0x11}, 4}, {}),
    readingRow(214, "lens-slot-1-region", 8, Reading::LensSlot1Region, "Address and bytes of the table, 4 bytes each.")
        .selectedBy(0x01, {{0x00, 0x01, 0x00, 0x11}, 4}, {}),
    wordRow(226, "function-226", 0, 255, 0, "A number without effect."),
    wordRow(227, "spatial-threshold", 0, 0x01FF, 0x0100, "A threshold byte, with an automatic flag above it."),
    objectParameterRow("emissivity", kEmissivity, 4096, 8192, 8192, "8192ths, 0.5 to 1."),
    objectParameterRow("object-parameter-2", 0x01, 0, 0xFFFF, 0, "A word without effect."),
    objectParameterRow("object-parameter-3", 0x02, 0, 0xFFFF, 0, "A word without effect."),
    objectParameterRow("atmospheric-temperature", kAtmosphericTemperature, 0, 12000, 2200,
                       "Hundredths of a degree Celsius, to 120."),
    objectParameterRow("reflected-temperature", kReflectedTemperature, 0, 60000, 2200,
                       "Hundredths of a degree Celsius, to 600."),
}};

namespace detail {

constexpr bool sameKey(const RequestKey& a, const RequestKey& b) {
  if (a.size != b.size) return false;
  for (std::size_t i = 0; i < a.size; ++i) {
    if (a.bytes[i] != b.bytes[i]) return false;
  }
  return true;
}

constexpr bool rowsAreSound() {
  for (std::size_t i = 0; i < kFunctionRowCount; ++i) {
    const FunctionRow& row = kFunctionRows[i];
    if (row.name.empty() || row.help.empty()) return false;
    if (row.kind == RowKind::Setting && row.answer_bytes != 2 * row.words) return false;
    if (row.kind == RowKind::Reading && row.reading == Reading::None) return false;
    const bool has_memory = row.memory != MemoryOperation::None && row.least_payload_bytes > 0 &&
                            row.most_payload_bytes >= row.least_payload_bytes;
    if (row.kind == RowKind::Memory && !has_memory) return false;
    for (std::size_t word = 0; word < row.words; ++word) {
      if (row.has_sign) continue;
      if (row.initial[word] < row.minimum || row.initial[word] > row.maximum) return false;
    }
    // Rows of one code stand side by side and can be told apart.
    for (std::size_t j = 0; j < i; ++j) {
      const FunctionRow& other = kFunctionRows[j];
      if (other.code > row.code) return false;
      if (other.code == row.code && (other.selector == row.selector || sameKey(other.get_key, row.get_key)))
        return false;
    }
  }
  return true;
}

}  // namespace detail

static_assert(detail::rowsAreSound(), "a row of the function table lacks something or is there twice");

/// Where a row's value stands in CoreSettings.
inline std::size_t rowIndex(const FunctionRow& row) { return static_cast<std::size_t>(&row - kFunctionRows.data()); }

/// Null where the core has no such row.
inline const FunctionRow* findRow(uint8_t code, uint8_t selector = 0) {
  for (const FunctionRow& row : kFunctionRows) {
    if (row.code == code && row.selector == selector) return &row;
  }
  return nullptr;
}

}  // namespace simulator
