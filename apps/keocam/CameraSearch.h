// The cameras that answer on this host's networks.
#pragma once

#include <vector>

#include "PvDeviceInfo.h"
#include "PvSystem.h"
#include "pv/aravis/DeviceDetails.h"

namespace keocam::cli {

/// Searches on construction, which takes about one second. Throws CommandFailure if the search itself fails.
class CameraSearch {
 public:
  CameraSearch();

  /// In the order of interfaces and devices. infos()[i] describes the same camera as details()[i], and lives as long as
  /// this object.
  const std::vector<const PvDeviceInfo*>& infos() const { return infos_; }
  const std::vector<DeviceDetails>& details() const { return details_; }

 private:
  PvSystem system_;
  std::vector<const PvDeviceInfo*> infos_;
  std::vector<DeviceDetails> details_;
};

/// Asks every device who uses it, several at a time: silent ones then cost their time-out together, not in turn.
std::vector<DeviceUse> usesOf(const std::vector<const PvDeviceInfo*>& infos);

}  // namespace keocam::cli
