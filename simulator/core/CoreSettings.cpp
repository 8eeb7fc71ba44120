#include "simulator/core/CoreSettings.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace simulator {

CoreSettings::CoreSettings() {
  for (const FunctionRow& row : kFunctionRows) set(row, row.initial);
}

uint16_t CoreSettings::word(FunctionCode code, uint8_t selector) const {
  const FunctionRow* row = findRow(static_cast<uint8_t>(code), selector);
  if (row == nullptr) throw std::out_of_range("no setting of code " + std::to_string(static_cast<unsigned>(code)));
  return words(*row)[0];
}

Bytes CoreSettings::answer(const FunctionRow& row) const {
  Bytes bytes;
  for (std::size_t i = 0; i < row.words; ++i) appendU16(bytes, words(row)[i]);
  return bytes;
}

int32_t maximumOf(const FunctionRow& row, const CoreAbilities& abilities) {
  return abilities.fast ? row.maximum : std::min(row.maximum, row.slow_maximum);
}

bool inRange(const FunctionRow& row, const SettingWords& words, const CoreAbilities& abilities) {
  const int32_t maximum = maximumOf(row, abilities);
  for (std::size_t i = 0; i < row.words; ++i) {
    const int32_t value = row.has_sign ? static_cast<int32_t>(static_cast<int16_t>(words[i])) : int32_t{words[i]};
    if (value < row.minimum || value > maximum) return false;
    if (value >= 0 && value < 32 && ((row.excluded >> static_cast<uint32_t>(value)) & 1U) != 0) return false;
  }
  return (words[0] & row.first_zero_bits) == 0;
}

}  // namespace simulator
