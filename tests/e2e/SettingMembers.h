// The members of CameraSerialSettings that set and get a setting, and what the core then holds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "serial/CameraSerialSettings.h"
#include "serial/SettingRow.h"
#include "simulator/core/ThermalCore.h"

namespace e2e {

/// Where the core keeps a setting.
struct CorePlace {
  uint8_t code;
  uint8_t selector = 0;
  std::size_t word = 0;
  uint16_t mask = 0xFFFF;  ///< the setting's bits of the word
};

/// One value, as the interface and as the core has it.
struct SettingCase {
  int value;
  uint16_t bits;  ///< under the place's mask
};

struct SettingMembers {
  const keocam::SettingRow& setting;
  CorePlace place;
  std::vector<SettingCase> cases;
  void (*set)(CameraSerialSettings& core, int value);
  int (*get)(CameraSerialSettings& core);
  /// What the getter makes of a value that was set; null where that is the value itself.
  int (*seen)(int value) = nullptr;
};

/// Every setting.
const std::vector<SettingMembers>& settingMembers();

/// The bits of a setting as the simulated core holds them.
uint16_t bitsOf(const simulator::ThermalCore& core, const CorePlace& place);

}  // namespace e2e
