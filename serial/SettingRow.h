// One setting of the thermal core: where it is, how its value lies on the wire, and what a person calls it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "serial/FunctionCodes.h"

namespace keocam {

/// One choice of a setting that has names for its values.
struct SettingChoice {
  int value;         ///< the interface's number
  int wire;          ///< the core's number, of forms Choice and AnalogVideo; kNotOnTheWire for one that it lacks
  const char* name;  ///< such as "automatic"
};
constexpr int kNotOnTheWire = -1;

/// How a setting's value lies in the payload of a reply, and in that of a write.
enum class SettingForm : uint8_t {
  Choice,          ///< a word, translated by the choices; an unknown word means 0
  Word,            ///< the first word, unsigned
  SignedWord,      ///< the first word, signed
  WordAbove256,    ///< the first word, less 256
  AnalogVideo,     ///< the first word: 2 is off, all else on
  LowBit,          ///< bit 0 of a first word up to 3, else 0; the other bits are another setting's
  SecondBit,       ///< bit 1 of a first word up to 3, else 0, likewise
  IsothermUnit,    ///< byte 0 of six: 0x80 or above is 0, below is 1; the other bytes are other settings'
  IsothermLower,   ///< byte 1, signed, likewise
  IsothermMiddle,  ///< bytes 2 and 3, signed, likewise
  IsothermUpper,   ///< bytes 4 and 5, signed, likewise
};

struct SettingChoices {
  const SettingChoice* first = nullptr;
  std::size_t count = 0;
  const SettingChoice* begin() const { return first; }
  const SettingChoice* end() const { return first + count; }
  bool empty() const { return count == 0; }
};

struct SettingRow {
  const char* name;     ///< such as "ffc-mode"
  const char* meaning;  ///< a line for a person
  const char* unit;     ///< such as "frames", or empty
  FunctionCodes code;
  DigitalOutputModes output;
  SettingForm form;
  SettingChoices choices;  ///< empty for numbers
};

/// The numbers that a setting accepts, both ends included; choices may have gaps in between.
struct SettingRange {
  int lowest;
  int highest;
};
SettingRange rangeOf(const SettingRow& setting);

/// Whether writing the setting needs what the core holds for its neighbours.
bool sharesItsValue(const SettingRow& setting);

/// Room for the payload of any setting's reply.
using SettingPayload = std::array<uint8_t, 6>;

/// The value that a reply's payload tells.
int decodeSetting(const SettingRow& setting, const SettingPayload& payload);

/// Whether the setting has this value on the core.
bool hasValue(const SettingRow& setting, int value);

/// Puts a value that the setting has into a payload as read, leaving its neighbours' part as it is.
void encodeSetting(const SettingRow& setting, int value, SettingPayload& payload);

}  // namespace keocam
