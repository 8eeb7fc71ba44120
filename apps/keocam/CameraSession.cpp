#include "apps/keocam/CameraSession.h"

#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/ConnectFailure.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "pv/aravis/Text.h"
#include "serial/CameraSerialSettings.h"

namespace keocam::cli {
namespace {

// The library tells of every exchange that fails. While this lives, that goes nowhere unless `shown`: the console tells
// what came of them.
class HeldErrors {
 public:
  explicit HeldErrors(bool shown) : original_(std::cerr.rdbuf()) {
    if (!shown) std::cerr.rdbuf(held_.rdbuf());
  }
  ~HeldErrors() { std::cerr.rdbuf(original_); }
  HeldErrors(const HeldErrors&) = delete;
  HeldErrors& operator=(const HeldErrors&) = delete;

 private:
  std::ostringstream held_;
  std::streambuf* original_;
};

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
  delete camera_.serialSettings;
}

int CameraSession::connectAndStart() {
  try {
    return camera_.Connect();
  } catch (const std::logic_error& error) {
    // Nothing has been connected to yet: the camera's class is read from its serial number first of all.
    if (camera_.device == nullptr) {
      throw CommandFailure(
          ExitStatus::Failure,
          nameOf(details_) +
              " cannot be connected to: its serial number must have three characters, a class letter and "
              "a number, like \"KEOD2001\".");
    }
    throw CommandFailure(ExitStatus::Failure, unusablePart() + " (" + printable(error.what()) + ").");
  }
}

std::string CameraSession::unusablePart() const {
  const std::string part_number = camera_.serialSettings->GetCameraPartNumber();
  if (camera_.calibrationText.empty() || !part_number.empty()) {
    return "The thermal core of " + nameOf(details_) + " cannot be started: its part number " + inQuotes(part_number) +
           " is too short";
  }
  return "The calibration of " + nameOf(details_) +
         " cannot be used; \"keocam calibration check\" with its file tells what is wrong";
}

CommandFailure CameraSession::failure() const {
  const PvResult reason = lastFailureOf(*info_);
  // Without a reason the connection was made and is gone again.
  const PvResult::Code code = reason.IsOK() ? PvResult::Code::NotConnected : reason.GetCode();
  return connectFailure(details_, code, textOf(reason.GetDescription()));
}

void CameraSession::warnOfCore(const Console& console) const {
  CameraSerialSettings& core = *camera_.serialSettings;
  if (core.GetIsSupported()) return;
  const std::string part_number = core.GetCameraPartNumber();
  if (part_number.empty()) {
    console.warning("The thermal core of " + nameOf(details_) +
                    " does not answer; frames come in whatever state it is. It needs some seconds after power-on.");
  } else {
    console.warning("The thermal core of " + nameOf(details_) + " has the part number " + inQuotes(part_number) +
                    ", which is not known; the size of its frames is left as it is.");
  }
}

void CameraSession::connect(const Console& console) {
  int result = 0;
  {
    const HeldErrors errors(console.verbosity() == Verbosity::Verbose);
    result = connectAndStart();
  }
  if (result != 0 || !camera_.IsConnected()) throw failure();
  warnOfCore(console);
}

}  // namespace keocam::cli
