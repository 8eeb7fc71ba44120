// The members that read the core's part number and tell what follows from it.
#include <array>
#include <string_view>

#include "serial/CameraSerialSettings.h"
#include "serial/PartNumber.h"

namespace {

// Shorter than this, a part number is as good as an unknown one.
constexpr std::size_t kThroughResolution = 5;

constexpr int kUnknownSize = -1;

}  // namespace

int CameraSerialSettings::CheckPartNumber() {
  isSupported = false;
  std::array<char, 32> answer{};
  if (GetParameter(CAMERA_PART_NUMBER, answer.data(), RADIOMETRIC_NONE, DIGITAL_OUTPUT_NONE) != CAM_OK) return -1;
  cameraPartNumber = keocam::partNumberIn({answer.data(), answer.size()});
  partNumber = cameraPartNumber;
  if (partNumber.size() >= kThroughResolution && keocam::resolutionOf(partNumber) != nullptr) {
    isSupported = true;
  } else if (const auto model = keocam::knownModelOf(partNumber)) {
    SetPartNumber(model->resolution, model->fast);
  }
  return 0;
}

void CameraSerialSettings::SetPartNumber(Resolution resolution, bool fast) {
  if (const keocam::ResolutionRow* const row = keocam::resolutionRow(resolution)) {
    partNumber = fast ? row->fast : row->slow;
  }
  isSupported = true;
}

std::string CameraSerialSettings::GetCameraPartNumber() { return cameraPartNumber; }
std::string CameraSerialSettings::GetPartNumber() { return partNumber; }
bool CameraSerialSettings::GetIsSupported() { return isSupported; }

int CameraSerialSettings::GetResolutionX() {
  const keocam::ResolutionRow* const row = keocam::resolutionOf(partNumber);
  return row != nullptr ? row->width : kUnknownSize;
}

int CameraSerialSettings::GetResolutionY() {
  const keocam::ResolutionRow* const row = keocam::resolutionOf(partNumber);
  return row != nullptr ? row->height : kUnknownSize;
}

bool CameraSerialSettings::GetIsFastVideoSpeed() { return keocam::isFast(partNumber); }
bool CameraSerialSettings::CheckIsRadimetric() { return keocam::isRadiometric(partNumber); }

std::string CameraSerialSettings::GetManufacturer() {
  return keocam::resolutionOf(partNumber) != nullptr ? "FLIR Systems Inc." : "";
}

std::string CameraSerialSettings::GetModel() { return "KEO_" + std::to_string(GetResolutionX()); }
