// The members that list lenses and select one.
#include <unistd.h>

#include <algorithm>

#include "base/Log.h"
#include "calibration/Calibration.h"
#include "calibration/LensLookup.h"
#include "calibration/SffcExchange.h"

std::vector<std::string> CameraSerialSettings::GetAvailibleLenses() {
  std::vector<std::string> names(calibrationVect.size());
  std::transform(calibrationVect.begin(), calibrationVect.end(), names.begin(),
                 [](const CalibrationStruct& lens) { return lens.lens; });
  return names;
}

std::string CameraSerialSettings::GetCurrentLense() {
  const int lens = CheckCameraSffc();
  return lens >= 0 ? calibrationVect[static_cast<std::size_t>(lens)].lens : std::string();
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): that the name is passed by value is the interface's.
int CameraSerialSettings::SetLens(std::string name) {
  sleep(1);
  const std::optional<int32_t> lens = keocam::findLens(name);
  if (!lens) {
    keocam::printErrorLine("CameraSerialSettings::setLens(): Error setting lens " + name + ", unknown");
    return 0;
  }
  const keocam::LensNotReady not_ready(*this);
  currentLensNumber = *lens;
  if (calibrationVect[static_cast<std::size_t>(*lens)].sffcTableSize < 1) return 1;
  // The lens counts as selected whatever comes of these; they report their failures themselves.
  switchSFFC1();
  switchSFFC2();
  changeSFFCLens();
  DoFFC();
  sleep(1);
  return 1;
}

bool CameraSerialSettings::isSetLensReady() { return keocam::lensReady(*this); }

bool CameraSerialSettings::GetHighRangeLensAvailable() {
  if (calibrationVect.empty()) return false;
  return calibrationVect.at(static_cast<std::size_t>(currentLensNumber)).has1500Range != 0;
}

int CameraSerialSettings::changeSFFCLens() {
  return keocam::askAsMembersDo(*this, keocam::kUseSlot, keocam::useSlotPayload(rangeMode)) ? 0 : -1;
}
