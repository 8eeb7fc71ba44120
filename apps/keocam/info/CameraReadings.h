// What a camera was asked for, and what came of it, before it is put into words.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "apps/keocam/core/CoreInfo.h"
#include "apps/keocam/core/SettingReport.h"
#include "apps/keocam/lens/CameraCalibration.h"
#include "pv/aravis/DeviceDetails.h"
#include "pv/aravis/LinkDetails.h"

namespace keocam::cli {

/// The lenses of the camera's calibration.
struct LensReadings {
  std::vector<LensSummary> lenses;
  std::optional<std::size_t> held;  ///< index of the lens whose tables the core holds
  std::string not_held;             ///< why there is none
  bool held_not_read = false;       ///< because the core was not to be read
  std::optional<int> speed;         ///< 0 slow, 1 fast, 2 fastest, where the serial number tells it
};

struct CameraReadings {
  DeviceDetails camera;
  DeviceUse use = DeviceUse::NoAnswer;  ///< before this program connected
  std::optional<LinkDetails> link;
  std::string no_link;  ///< why there is none
  std::optional<CoreInfo> core;
  std::vector<SettingReading> radiometry;  ///< of a core that was read
  std::string no_core;                     ///< why the core was not read
  std::optional<LensReadings> lens;
  std::string no_lens;         ///< why there is none
  bool lens_not_read = false;  ///< because the calibration cannot be read; else no folder was named
};

}  // namespace keocam::cli
