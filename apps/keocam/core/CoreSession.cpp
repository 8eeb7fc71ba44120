#include "apps/keocam/core/CoreSession.h"

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/core/SerialBridge.h"
#include "apps/keocam/core/StatusText.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "pv/aravis/Text.h"
#include "serial/CheckedExchange.h"

namespace keocam::cli {
namespace {

// Half a second each where the core is silent: longer together than a core takes to start.
constexpr int kWakeAttempts = 5;

}  // namespace

CoreSession::CoreSession(const std::optional<std::string>& serial_number, const Console& console)
    : chosen_(chooseCamera(search_.details(), serial_number, searchedInterfaces())), device_(nullptr, &PvDevice::Free) {
  if (!camera().in_subnet) console.warning(subnetAdvice(camera()));
}

CoreSession::~CoreSession() = default;

void CoreSession::connect() {
  device_ = connectDevice(info());
  setUpSerialBridge(*device_, camera());
  core_.emplace(device_.get(), kCorePort);
  wake();
}

ResponseStatuses CoreSession::ask() { return checkedWrite(*core_, NO_OPERATION, nullptr, {}); }

void CoreSession::wake() {
  ResponseStatuses status = UNKNOWN_ERROR;
  // A core that has noise in its receiver refuses the first message and takes the next.
  for (int attempt = 0; attempt < kWakeAttempts; ++attempt) {
    status = ask();
    if (status == CAM_OK) return;
    requireLink();
  }
  const std::string core = "The thermal core of " + nameOf(camera());
  if (exitStatusOf(status) != ExitStatus::LinkLost) {
    throw CommandFailure(exitStatusOf(status), core + " is not ready: " + wordsFor(status) + ". " + adviceOn(status));
  }
  throw CommandFailure(ExitStatus::LinkLost,
                       core +
                           " does not answer, although the camera itself does. It needs some seconds after power-on; "
                           "if it stays silent, switch the camera off and on, and check the cable between its network "
                           "board and its core, and that nothing else uses the bridged serial port.");
}

void CoreSession::requireLink() const {
  if (device_->IsConnected()) return;
  const std::string reason = textOf(lastFailureOf(*search_.infos()[chosen_]).GetDescription());
  throw CommandFailure(ExitStatus::LinkLost, "The connection to " + nameOf(camera()) + " was lost" +
                                                 (reason.empty() ? "." : ": " + printable(reason)) +
                                                 " Check its power and its cable.");
}

std::unique_ptr<CoreSession> connectedCore(const std::optional<std::string>& serial_number, const Console& console) {
  auto session = std::make_unique<CoreSession>(serial_number, console);
  session->connect();
  console.detail("Connected to the thermal core of " + nameOf(session->camera()) + ".");
  return session;
}

}  // namespace keocam::cli
