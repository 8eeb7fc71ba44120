// Lenses of the calibration in force by their name, and the flag that one is being changed.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "calibration/Calibration.h"
#include "serial/CameraSerialSettings.h"

namespace keocam {

/// The first lens of that very name.
inline std::optional<int32_t> findLens(const std::string& name) {
  const auto found = std::find_if(calibrationVect.begin(), calibrationVect.end(),
                                  [&name](const CalibrationStruct& lens) { return lens.lens == name; });
  if (found == calibrationVect.end()) return std::nullopt;
  return static_cast<int32_t>(found - calibrationVect.begin());
}

/// CameraSerialSettings::setLensReady as isSetLensReady() and LensNotReady use it: another thread may look meanwhile.
inline bool lensReady(const CameraSerialSettings& core) {
  return __atomic_load_n(&core.setLensReady, __ATOMIC_ACQUIRE);
}

/// While it lives, isSetLensReady() is false.
class LensNotReady {
 public:
  explicit LensNotReady(CameraSerialSettings& core) : core_(core) { store(false); }
  ~LensNotReady() { store(true); }
  LensNotReady(const LensNotReady&) = delete;
  LensNotReady& operator=(const LensNotReady&) = delete;

 private:
  void store(bool ready) { __atomic_store_n(&core_.setLensReady, ready, __ATOMIC_RELEASE); }

  CameraSerialSettings& core_;
};

}  // namespace keocam
