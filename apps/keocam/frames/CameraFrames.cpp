#include "apps/keocam/frames/CameraFrames.h"

namespace keocam::cli {

CameraFrames::CameraFrames(PvDevice& device, const PvDeviceInfo& info) : opened_(device, info) {
  opened_.camera().StartAcquisition();
}

CameraFrames::~CameraFrames() { opened_.camera().StopAcquisition(); }

std::optional<ReceivedFrame> CameraFrames::next() {
  Camera& camera = opened_.camera();
  // The camera hands the previous buffer out again when none came; null before the call tells the two apart.
  camera.buffer = nullptr;
  const uint8_t* const data = camera.RetreiveBuffer();
  if (camera.buffer == nullptr) return std::nullopt;
  const FrameDetails details = detailsOf(*camera.buffer);
  ReceivedFrame frame{details, std::vector<uint8_t>(data, data + details.size)};
  camera.ReleaseBuffer();
  return frame;
}

}  // namespace keocam::cli
