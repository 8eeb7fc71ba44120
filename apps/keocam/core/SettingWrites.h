// The order of work when settings are written: each is written and read back before the next.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/core/SettingArguments.h"
#include "apps/keocam/core/SettingReport.h"

namespace keocam::cli {

/// What is asked of the core. Any may throw, which ends the work.
struct SettingAccess {
  std::function<ResponseStatuses(const SettingRow& setting, int value)> write;
  std::function<CoreValue<int>(const SettingRow& setting)> read;
  std::function<ResponseStatuses()> correctFlatField;
};

struct SettingOutcome {
  std::vector<SettingReading> done;       ///< as read back
  std::optional<CommandFailure> failure;  ///< of the first one that did not do; those after it were not sent
};

/// A new video standard is followed by a flat-field correction.
SettingOutcome writeSettings(const std::vector<Assignment>& assignments, const SettingAccess& core);

}  // namespace keocam::cli
