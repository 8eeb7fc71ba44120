#include "apps/keocam/ConnectFailure.h"

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

std::string linkAdvice(const DeviceDetails& camera) {
  return " Check its power and its cable" + (camera.in_subnet ? "." : ", and its address: " + subnetAdvice(camera));
}

}  // namespace

CommandFailure connectFailure(const DeviceDetails& camera, PvResult::Code code, const std::string& reason) {
  const std::string text = "Connecting to " + nameOf(camera) + " failed" +
                           (reason.empty() ? std::string(" without an explanation.") : ": " + printable(reason));
  switch (code) {
    case PvResult::Code::InUse:
      return {ExitStatus::InUse,
              text + " End the other program first; the camera is free again a few seconds after it has gone."};
    case PvResult::Code::NotConnected:
    case PvResult::Code::Timeout:
      return {ExitStatus::LinkLost, text + linkAdvice(camera)};
    default:
      return {ExitStatus::Failure, text};
  }
}

}  // namespace keocam::cli
