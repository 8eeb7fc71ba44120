// The values of all settings of the core, as one value.
#pragma once

#include <array>
#include <cstdint>

#include "simulator/Bytes.h"
#include "simulator/core/CoreIdentity.h"
#include "simulator/core/FunctionTable.h"

namespace simulator {

/// Starts with the factory's values.
class CoreSettings {
 public:
  CoreSettings();

  const SettingWords& words(const FunctionRow& row) const { return values_[rowIndex(row)]; }
  void set(const FunctionRow& row, const SettingWords& words) { values_[rowIndex(row)] = words; }

  /// The first word of a setting that the table has.
  uint16_t word(FunctionCode code, uint8_t selector = 0) const;

  /// The value as an answer carries it.
  Bytes answer(const FunctionRow& row) const;

  bool operator==(const CoreSettings& other) const { return values_ == other.values_; }

 private:
  std::array<SettingWords, kFunctionRowCount> values_{};
};

/// The largest word that a core takes for the row's setting.
int32_t maximumOf(const FunctionRow& row, const CoreAbilities& abilities);

/// Whether a core takes these words for the row's setting.
bool inRange(const FunctionRow& row, const SettingWords& words, const CoreAbilities& abilities);

}  // namespace simulator
