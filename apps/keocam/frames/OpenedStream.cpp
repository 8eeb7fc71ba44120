#include "apps/keocam/frames/OpenedStream.h"

#include "apps/keocam/ConnectFailure.h"
#include "pv/aravis/DeviceDetails.h"
#include "pv/aravis/Text.h"

namespace keocam::cli {
namespace {

void requireConnection(const PvDevice& device, const PvDeviceInfo& info) {
  if (device.IsConnected()) return;
  const PvResult reason = lastFailureOf(info);
  const PvResult::Code code = reason.IsOK() ? PvResult::Code::NotConnected : reason.GetCode();
  throw connectFailure(detailsOf(info), code, textOf(reason.GetDescription()));
}

}  // namespace

OpenedStream::OpenedStream(PvDevice& device, const PvDeviceInfo& info)
    : camera_(&info), stream_(nullptr, &PvStream::Free) {
  PvResult result;
  stream_.reset(PvStream::CreateAndOpen(info.GetConnectionID(), &result));
  if (stream_ == nullptr) throw connectFailure(detailsOf(info), result.GetCode(), textOf(result.GetDescription()));
  camera_.device = &device;
  camera_.stream = stream_.get();
  camera_.ConfigureStream();
  pipeline_.reset(camera_.CreatePipeline(&device, stream_.get()));
  camera_.pipeline = pipeline_.get();
  // Steps that fail say nothing of it.
  requireConnection(device, info);
}

}  // namespace keocam::cli
