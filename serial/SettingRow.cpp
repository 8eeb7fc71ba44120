#include "serial/SettingRow.h"

#include <algorithm>
#include <limits>

#include "serial/ParameterTable.h"

namespace keocam {
namespace {

constexpr int kThresholdOffset = 256;
constexpr uint8_t kCelsiusFlag = 0x80;
constexpr int kAnalogVideoOff = 2;

int wordAt(const SettingPayload& payload, std::size_t offset) { return payload[offset] << 8 | payload[offset + 1]; }

int signedWordAt(const SettingPayload& payload, std::size_t offset) {
  return static_cast<int16_t>(wordAt(payload, offset));
}

void storeWord(int value, SettingPayload& payload, std::size_t offset) {
  payload[offset] = static_cast<uint8_t>(static_cast<unsigned int>(value) >> 8 & 0xFF);
  payload[offset + 1] = static_cast<uint8_t>(static_cast<unsigned int>(value) & 0xFF);
}

// Two settings share a word as its bits 0 and 1; any other word means that both are off.
constexpr int kHighestPair = 3;

int pairAt(const SettingPayload& payload) {
  const int word = wordAt(payload, 0);
  return word <= kHighestPair ? word : 0;
}

void storeBit(int bit, int value, SettingPayload& payload) {
  const int others = pairAt(payload) & ~bit;
  storeWord(value != 0 ? others | bit : others, payload, 0);
}

int valueOfWire(const SettingChoices& choices, int wire) {
  const auto* const found =
      std::find_if(choices.begin(), choices.end(), [wire](const SettingChoice& choice) { return choice.wire == wire; });
  return found != choices.end() ? found->value : 0;
}

int wireOfValue(const SettingChoices& choices, int value) {
  const auto* const found = std::find_if(choices.begin(), choices.end(),
                                         [value](const SettingChoice& choice) { return choice.value == value; });
  return found != choices.end() ? found->wire : kNotOnTheWire;
}

template <typename T>
constexpr SettingRange all() {
  return {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};
}

}  // namespace

SettingRange rangeOf(const SettingRow& setting) {
  switch (setting.form) {
    case SettingForm::Word: {
      const ParameterRow* const row = findParameter(setting.code);
      return {0, row != nullptr ? row->writing.highest : 0};
    }
    case SettingForm::WordAbove256:
      return {0, std::numeric_limits<uint16_t>::max() - kThresholdOffset};
    case SettingForm::IsothermLower:
      return all<int8_t>();
    case SettingForm::SignedWord:
    case SettingForm::IsothermMiddle:
    case SettingForm::IsothermUpper:
      return all<int16_t>();
    case SettingForm::Choice:
    case SettingForm::AnalogVideo:
    case SettingForm::LowBit:
    case SettingForm::SecondBit:
    case SettingForm::IsothermUnit:
      break;
  }
  const auto less = [](const SettingChoice& left, const SettingChoice& right) { return left.value < right.value; };
  const auto ends = std::minmax_element(setting.choices.begin(), setting.choices.end(), less);
  return {ends.first->value, ends.second->value};
}

bool sharesItsValue(const SettingRow& setting) {
  switch (setting.form) {
    case SettingForm::LowBit:
    case SettingForm::SecondBit:
    case SettingForm::IsothermUnit:
    case SettingForm::IsothermLower:
    case SettingForm::IsothermMiddle:
    case SettingForm::IsothermUpper:
      return true;
    default:
      return false;
  }
}

int decodeSetting(const SettingRow& setting, const SettingPayload& payload) {
  switch (setting.form) {
    case SettingForm::Choice:
      return valueOfWire(setting.choices, wordAt(payload, 0));
    case SettingForm::Word:
      return wordAt(payload, 0);
    case SettingForm::SignedWord:
      return signedWordAt(payload, 0);
    case SettingForm::WordAbove256:
      return wordAt(payload, 0) - kThresholdOffset;
    case SettingForm::AnalogVideo:
      return wordAt(payload, 0) != kAnalogVideoOff ? 1 : 0;
    case SettingForm::LowBit:
      return pairAt(payload) & 1;
    case SettingForm::SecondBit:
      return pairAt(payload) >> 1;
    case SettingForm::IsothermUnit:
      return payload[0] < kCelsiusFlag ? 1 : 0;
    case SettingForm::IsothermLower:
      return static_cast<int8_t>(payload[1]);
    case SettingForm::IsothermMiddle:
      return signedWordAt(payload, 2);
    case SettingForm::IsothermUpper:
      return signedWordAt(payload, 4);
  }
  return 0;
}

bool hasValue(const SettingRow& setting, int value) {
  if (!setting.choices.empty()) return wireOfValue(setting.choices, value) != kNotOnTheWire;
  const SettingRange range = rangeOf(setting);
  return value >= range.lowest && value <= range.highest;
}

void encodeSetting(const SettingRow& setting, int value, SettingPayload& payload) {
  switch (setting.form) {
    case SettingForm::Choice:
    case SettingForm::AnalogVideo:
      return storeWord(wireOfValue(setting.choices, value), payload, 0);
    case SettingForm::Word:
    case SettingForm::SignedWord:
      return storeWord(value, payload, 0);
    case SettingForm::WordAbove256:
      return storeWord(value + kThresholdOffset, payload, 0);
    case SettingForm::LowBit:
      return storeBit(1, value, payload);
    case SettingForm::SecondBit:
      return storeBit(2, value, payload);
    case SettingForm::IsothermUnit:
      payload[0] = value == 0 ? kCelsiusFlag : 0;
      return;
    case SettingForm::IsothermLower:
      payload[1] = static_cast<uint8_t>(static_cast<unsigned int>(value) & 0xFF);
      return;
    case SettingForm::IsothermMiddle:
      return storeWord(value, payload, 2);
    case SettingForm::IsothermUpper:
      return storeWord(value, payload, 4);
  }
}

}  // namespace keocam
