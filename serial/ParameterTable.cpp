#include "serial/ParameterTable.h"

#include <algorithm>

namespace keocam {
namespace {

constexpr Reading kWord{ReadAccess::Readable, ReplyForm::Word, 2};
constexpr Reading kNotReadable{ReadAccess::Refused, ReplyForm::Raw, 0};
constexpr Reading kNoReading{ReadAccess::Unknown, ReplyForm::Raw, 0};
constexpr Reading raw(uint8_t bytes) { return {ReadAccess::Readable, ReplyForm::Raw, bytes}; }

constexpr uint16_t kUnchecked = 0xFFFF;
constexpr Writing kCommand{WriteAccess::Writable, ValueForm::None, 0, false, 0, 0, false};
constexpr Writing kNotWritable{WriteAccess::Refused, ValueForm::None, 0, false, 0, 0, false};
constexpr Writing kNoWriting{WriteAccess::Unknown, ValueForm::None, 0, false, 0, 0, false};
constexpr Writing byteTo(uint16_t highest, uint16_t gaps = 0) {
  return {WriteAccess::Writable, ValueForm::Byte, 1, true, highest, gaps, false};
}
constexpr Writing selectedByteTo(uint16_t highest) {
  return {WriteAccess::Writable, ValueForm::Byte, 1, false, highest, 0, false};
}
constexpr Writing wordTo(uint16_t highest) {
  return {WriteAccess::Writable, ValueForm::Word, 2, false, highest, 0, false};
}
constexpr Writing rawBytes(uint8_t count) { return {WriteAccess::Writable, ValueForm::Raw, count, false, 0, 0, false}; }
constexpr Writing faultingByteTo(uint16_t highest) {
  return {WriteAccess::Writable, ValueForm::Byte, 1, true, highest, 0, true};
}

constexpr uint16_t bit(unsigned int n) { return static_cast<uint16_t>(1U << n); }

constexpr std::array kRows = {
    ParameterRow{NO_OPERATION, Selector::None, kNoReading, kCommand},
    ParameterRow{SET_DEFAULTS, Selector::None, kNotReadable, kCommand},
    ParameterRow{CAMERA_RESET, Selector::None, kNotReadable, kCommand},
    ParameterRow{RESTORE_FACTORY_DEFAULTS, Selector::None, kNotReadable, kCommand},
    ParameterRow{SERIAL_NUMBER, Selector::None, raw(8), kNotWritable},
    ParameterRow{VERSION, Selector::None, raw(8), kNotWritable},
    ParameterRow{CODE_10, Selector::None, kWord, byteTo(3)},
    ParameterRow{FFC_MODE, Selector::None, kWord, byteTo(2)},
    ParameterRow{DO_FFC, Selector::None, kWord, kCommand},
    ParameterRow{FFC_PERIOD, Selector::None, raw(4), wordTo(30000)},
    ParameterRow{FFC_TEMP_DELTA, Selector::None, raw(4), wordTo(10)},
    ParameterRow{ANALOG_VIDEO, Selector::None, raw(2), rawBytes(2)},
    ParameterRow{PALETTE, Selector::None, kWord, byteTo(29)},
    ParameterRow{INVERT_REVERT_VIDEO, Selector::None, kWord, byteTo(3)},
    ParameterRow{DIGITAL_OUTPUT_MODE, Selector::DigitalOutput, kWord, selectedByteTo(kUnchecked)},
    ParameterRow{AGC_TYPE, Selector::None, kWord, faultingByteTo(10)},
    ParameterRow{CONTRAST, Selector::None, kWord, wordTo(255)},
    ParameterRow{BRIGHTNESS, Selector::None, kWord, wordTo(16383)},
    ParameterRow{BRIGHTNESS_BIAS, Selector::None, kWord, wordTo(kUnchecked)},
    ParameterRow{SPOT_METER_MODE, Selector::None, kWord, byteTo(2)},
    ParameterRow{TEMPERATURE, Selector::TemperatureSensor, raw(2), kNoWriting},
    ParameterRow{EXTERNAL_SYNC, Selector::None, kWord, byteTo(2)},
    ParameterRow{CODE_34, Selector::None, kWord, byteTo(1)},
    ParameterRow{ISOTHERM_THRESHOLDS, Selector::None, raw(6), rawBytes(6)},
    ParameterRow{TEST_PATTERN, Selector::None, kWord, byteTo(8, bit(2) | bit(7))},
    ParameterRow{VIDEO_COLOR_MODE, Selector::None, kWord, byteTo(1)},
    ParameterRow{CODE_42, Selector::None, kWord, kNoWriting},
    ParameterRow{SPOT_DISPLAY_MODE, Selector::None, kWord, byteTo(3)},
    ParameterRow{DDE_GAIN, Selector::None, kWord, wordTo(kUnchecked)},
    ParameterRow{FFC_WARN_TIME, Selector::None, kWord, wordTo(600)},
    ParameterRow{AGC_FILTER, Selector::None, kWord, wordTo(255)},
    ParameterRow{PLATEAU_LEVEL, Selector::None, kWord, wordTo(4095)},
    ParameterRow{SHUTTER_TEMPERATURE, Selector::None, raw(2), kNoWriting},
    ParameterRow{AGC_MIDPOINT, Selector::None, kWord, wordTo(255)},
    ParameterRow{CAMERA_PART_NUMBER, Selector::None, raw(32), kNotWritable},
    ParameterRow{MAX_AGC_GAIN, Selector::None, kWord, wordTo(255)},
    ParameterRow{VIDEO_STANDARD, Selector::None, kWord, byteTo(5)},
    ParameterRow{RADIOMETRY, Selector::Radiometry, kWord, selectedByteTo(1)},
    ParameterRow{CODE_226, Selector::None, kWord, wordTo(255)},
    ParameterRow{SPATIAL_THRESHOLD, Selector::None, kWord, wordTo(kUnchecked)},
    ParameterRow{RADIOMETRIC_PARAMETER, Selector::RadiometricParameter, kWord, wordTo(kUnchecked)},
};

constexpr bool codesAscend() {
  for (std::size_t i = 1; i < kRows.size(); ++i) {
    if (kRows[i - 1].code >= kRows[i].code) return false;
  }
  return true;
}
static_assert(codesAscend(), "each code has one row, and findParameter searches by halves");

constexpr bool sizesFitTheirForms() {
  for (const ParameterRow& row : kRows) {
    const bool readable = row.reading.access == ReadAccess::Readable;
    if (readable != (row.reading.reply_bytes > 0)) return false;
    if (row.reading.form == ReplyForm::Word && row.reading.reply_bytes != 2) return false;
    if (row.writing.form == ValueForm::Word && row.writing.value_bytes != 2) return false;
  }
  return true;
}
static_assert(sizesFitTheirForms());

// Indexed by DigitalOutputModes.
constexpr std::array<SelectorBytes, 4> kDigitalOutputs = {{
    {{0x02, 0x00}, {0x03}, 1},
    {{0x04, 0x00}, {0x05}, 1},
    {{0x08, 0x00}, {0x06}, 1},
    {{0x09, 0x00}, {0x07}, 1},
}};

// Indexed by the object's temperatureSensor: sensor, housing. Never written.
constexpr std::array<SelectorBytes, 2> kTemperatureSensors = {{
    {{0x00, 0x00}, {}, 0},
    {{0x00, 0x0A}, {}, 0},
}};

// Indexed by the object's radiometrySelector: resolution, radiometry itself.
constexpr std::array<SelectorBytes, 2> kRadiometry = {{
    {{0x00, 0x10}, {0x00, 0x10, 0x00}, 3},
    {{0x00, 0x40}, {0x00, 0x40, 0x00}, 3},
}};

// Indexed by RadiometricParameters less one: RADIOMETRIC_NONE has none.
constexpr std::array<SelectorBytes, 5> kRadiometricParameters = {{
    {{0x01, 0x00}, {0x01, 0x00}, 2},
    {{0x01, 0x01}, {0x01, 0x01}, 2},
    {{0x01, 0x02}, {0x01, 0x02}, 2},
    {{0x01, 0x07}, {0x01, 0x07}, 2},
    {{0x01, 0x05}, {0x01, 0x05}, 2},
}};

template <std::size_t N>
const SelectorBytes* at(const std::array<SelectorBytes, N>& table, uint32_t index) {
  return index < N ? &table[index] : nullptr;
}

}  // namespace

const ParameterRow* findParameter(FunctionCodes code) {
  const auto* const row =
      std::lower_bound(kRows.begin(), kRows.end(), code,
                       [](const ParameterRow& left, FunctionCodes right) { return left.code < right; });
  return row != kRows.end() && row->code == code ? row : nullptr;
}

const SelectorBytes* findSelectorBytes(Selector selector, uint32_t value) {
  switch (selector) {
    case Selector::None:
      return nullptr;
    case Selector::DigitalOutput:
      return at(kDigitalOutputs, value);
    case Selector::TemperatureSensor:
      return at(kTemperatureSensors, value);
    case Selector::Radiometry:
      return at(kRadiometry, value);
    case Selector::RadiometricParameter:
      return value == RADIOMETRIC_NONE ? nullptr : at(kRadiometricParameters, value - 1);
  }
  return nullptr;
}

ParameterRows parameterRows() { return {kRows.data(), kRows.size()}; }

}  // namespace keocam
