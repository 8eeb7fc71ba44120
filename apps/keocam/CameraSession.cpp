#include "apps/keocam/CameraSession.h"

#include <stdexcept>
#include <string>
#include <utility>

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

CommandFailure inUse(const DeviceDetails& camera) {
  return {ExitStatus::InUse,
          nameOf(camera) +
              " is in use by another program or host. End that one first; the camera is free again a few "
              "seconds after it has gone."};
}

CommandFailure noAnswer(const DeviceDetails& camera) {
  return {ExitStatus::LinkLost, nameOf(camera) + " does not answer any more. Check its power and its cable" +
                                    (camera.in_subnet ? "." : ", and its address: " + subnetAdvice(camera))};
}

CommandFailure unknown(const DeviceDetails& camera) {
  return {ExitStatus::Failure, nameOf(camera) +
                                   " answers, but the connection or its stream could not be opened. Run it again with "
                                   "--verbose to see how far it got."};
}

}  // namespace

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
  if (useOf(*info_) == DeviceUse::OtherHost) throw inUse(details_);
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
  switch (useOf(*info_)) {
    case DeviceUse::OtherHost:
      throw inUse(details_);
    case DeviceUse::NoAnswer:
      throw noAnswer(details_);
    case DeviceUse::Free:
    case DeviceUse::ThisProcess:
      break;
  }
  throw unknown(details_);
}

}  // namespace keocam::cli
