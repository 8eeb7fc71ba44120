#include "apps/keocam/CameraSession.h"

#include <stdexcept>
#include <string>
#include <utility>

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/ConnectFailure.h"
#include "pv/aravis/Text.h"

namespace keocam::cli {

CameraSession::CameraSession(const PvDeviceInfo* info, DeviceDetails details, const CalibrationEntry& calibration)
    : info_(info),
      details_(std::move(details)),
      camera_(info, calibration.text, calibration.version, calibration.serial_number) {}

CameraSession::~CameraSession() {
  const bool anything = camera_.device != nullptr || camera_.stream != nullptr || camera_.pipeline != nullptr;
  if (!anything) return;
  camera_.Disconnect();
  // A camera that was lost keeps its device, and a stream that closed by itself stays too.
  PvStream::Free(camera_.stream);
  PvDevice::Free(camera_.device);
}

void CameraSession::connect() {
  try {
    if (camera_.Connect() == 0) return;
  } catch (const std::logic_error&) {
    // The camera's class is read from its serial number, and the library refuses one that has none.
    throw CommandFailure(
        ExitStatus::Failure,
        nameOf(details_) +
            " cannot be connected to: its serial number must have three characters, a class letter and "
            "a number, like \"KEOD2001\".");
  }
  const PvResult reason = lastFailureOf(*info_);
  // Without a reason the connection was made and is gone again.
  const PvResult::Code code = reason.IsOK() ? PvResult::Code::NotConnected : reason.GetCode();
  throw connectFailure(details_, code, textOf(reason.GetDescription()));
}

}  // namespace keocam::cli
