#include "serial/ParameterAccess.h"

#include <unistd.h>

#include <string>

#include "base/Log.h"
#include "serial/SerialExchange.h"

namespace keocam {
namespace {

constexpr useconds_t kAfterWrite_us = 1'000;
constexpr useconds_t kBeforeRead_us = 10'000;
constexpr uint32_t kReadTimeout_ms = 100;
constexpr uint32_t kWriteTimeout_ms = 500;

/// How far an exchange got.
enum class Reached : uint8_t { Nothing, Port, Core, Answer };

class FailureReport {
 public:
  FailureReport(Report report, const char* operation) : report_(report), operation_(operation) {}

  void tell(const std::string& failure) const {
    if (report_ == Report::Printed) printErrorLine("CameraSerialSettings::" + (operation_ + (": " + failure)));
  }

  ResponseStatuses statusOf(const ReplyBuffer& reply) const {
    const ResponseStatuses status = reply.status();
    if (status != CAM_OK) tell(std::string("Camera response error: ") + textOf(status));
    return status;
  }

 private:
  Report report_;
  std::string operation_;
};

// A failed write is told while the port is still open, all other failures once it is closed.
Reached read(const CorePort& core, const std::vector<uint8_t>& request, ReplyBuffer& reply,
             const FailureReport& failure) {
  SerialExchange exchange(core.device, core.port);
  if (!exchange.opened()) {
    exchange.abandon();
    return Reached::Nothing;
  }
  const bool written = exchange.write(request.data(), request.size());
  usleep(kAfterWrite_us);
  if (!written) {
    failure.tell("Error sending message to camera");
    return Reached::Port;
  }
  usleep(kBeforeRead_us);
  return exchange.read(reply, kReadTimeout_ms) ? Reached::Answer : Reached::Core;
}

// A port that did not open shows as one that cannot be written to.
Reached write(const CorePort& core, const std::vector<uint8_t>& request, ReplyBuffer& reply) {
  SerialExchange exchange(core.device, core.port);
  if (!exchange.write(request.data(), request.size())) return Reached::Port;
  return exchange.read(reply, kWriteTimeout_ms) ? Reached::Answer : Reached::Core;
}

}  // namespace

ResponseStatuses exchangeRead(const CorePort& core, const std::vector<uint8_t>& request, ReplyBuffer& reply,
                              Report report) {
  const FailureReport failure(report, "GetParameter");
  switch (read(core, request, reply, failure)) {
    case Reached::Nothing:
      failure.tell("Error opening serial communication");
      return UNKNOWN_ERROR;
    case Reached::Port:
      return UNKNOWN_ERROR;
    case Reached::Core:
      failure.tell("Error reading message from camera.");
      return UNKNOWN_ERROR;
    case Reached::Answer:
      break;
  }
  return failure.statusOf(reply);
}

ResponseStatuses exchangeWrite(const CorePort& core, const std::vector<uint8_t>& request, ReplyBuffer& reply,
                               Report report) {
  const FailureReport failure(report, "SetParameter");
  switch (write(core, request, reply)) {
    case Reached::Nothing:
    case Reached::Port:
      failure.tell("Error writing message to camera.");
      return UNKNOWN_ERROR;
    case Reached::Core:
      failure.tell("Error reading message from camera.");
      return UNKNOWN_ERROR;
    case Reached::Answer:
      break;
  }
  return failure.statusOf(reply);
}

}  // namespace keocam
