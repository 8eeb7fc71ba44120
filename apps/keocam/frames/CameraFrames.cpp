#include "apps/keocam/frames/CameraFrames.h"

#include "apps/keocam/ConnectFailure.h"
#include "pv/aravis/DeviceDetails.h"
#include "pv/aravis/Text.h"

namespace keocam::cli {

CameraFrames::CameraFrames(PvDevice& device, const PvDeviceInfo& info)
    : camera_(&info), stream_(nullptr, &PvStream::Free) {
  PvResult result;
  stream_.reset(PvStream::CreateAndOpen(info.GetConnectionID(), &result));
  if (stream_ == nullptr) throw connectFailure(detailsOf(info), result.GetCode(), textOf(result.GetDescription()));
  camera_.device = &device;
  camera_.stream = stream_.get();
  camera_.ConfigureStream();
  pipeline_.reset(camera_.CreatePipeline(&device, stream_.get()));
  camera_.pipeline = pipeline_.get();
  camera_.StartAcquisition();
}

CameraFrames::~CameraFrames() { camera_.StopAcquisition(); }

std::optional<ReceivedFrame> CameraFrames::next() {
  // The camera hands the previous buffer out again when none came; null before the call tells the two apart.
  camera_.buffer = nullptr;
  const uint8_t* const data = camera_.RetreiveBuffer();
  if (camera_.buffer == nullptr) return std::nullopt;
  const FrameDetails details = detailsOf(*camera_.buffer);
  ReceivedFrame frame{details, std::vector<uint8_t>(data, data + details.size)};
  camera_.ReleaseBuffer();
  return frame;
}

}  // namespace keocam::cli
