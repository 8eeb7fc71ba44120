#include "serial/ParameterAccess.h"

#include <unistd.h>

#include <algorithm>
#include <optional>
#include <string>

#include "base/Log.h"
#include "serial/SerialExchange.h"

namespace keocam {
namespace {

constexpr useconds_t kAfterWrite_us = 1'000;
constexpr useconds_t kBeforeRead_us = 10'000;
constexpr uint32_t kAnswerToRead_ms = 100;
constexpr uint32_t kAnswerToRest_ms = 500;

/// How far an exchange got.
enum class Reached : uint8_t { Nothing, Port, Core, Answer };

class FailureReport {
 public:
  FailureReport(Manner manner, const char* operation) : manner_(manner), operation_(operation) {}

  void tell(const std::string& failure) const {
    if (manner_ == Manner::Interface) printErrorLine("CameraSerialSettings::" + (operation_ + (": " + failure)));
  }

  ResponseStatuses statusOf(const ReplyBuffer& reply) const {
    const ResponseStatuses status = reply.status();
    if (status != CAM_OK) tell(std::string("Camera response error: ") + textOf(status));
    return status;
  }

 private:
  Manner manner_;
  std::string operation_;
};

// A failed write is told while the port is still open, all other failures once it is closed.
Reached read(const CorePort& core, const std::vector<uint8_t>& request, ReplyBuffer& reply, Manner manner,
             const FailureReport& failure) {
  SerialExchange exchange(core.device, core.port);
  if (!exchange.opened()) {
    exchange.abandon();
    return Reached::Nothing;
  }
  if (manner == Manner::Checked) exchange.discardReceived();
  const bool written = exchange.write(request.data(), request.size());
  usleep(kAfterWrite_us);
  if (!written) {
    failure.tell("Error sending message to camera");
    return Reached::Port;
  }
  usleep(kBeforeRead_us);
  return exchange.read(reply, kAnswerToRead_ms) ? Reached::Answer : Reached::Core;
}

// A port that did not open shows as one that cannot be written to.
Reached send(const CorePort& core, const uint8_t* frame, std::size_t size, std::optional<int> wait_us,
             ReplyBuffer& reply, Manner manner) {
  SerialExchange exchange(core.device, core.port);
  if (manner == Manner::Checked) exchange.discardReceived();
  if (!exchange.write(frame, size)) return Reached::Port;
  if (wait_us) usleep(static_cast<useconds_t>(std::max(*wait_us, 0)));
  return exchange.read(reply, kAnswerToRest_ms) ? Reached::Answer : Reached::Core;
}

ResponseStatuses statusAfter(Reached reached, const ReplyBuffer& reply, const FailureReport& failure) {
  if (reached == Reached::Answer) return failure.statusOf(reply);
  failure.tell(reached == Reached::Core ? "Error reading message from camera." : "Error writing message to camera.");
  return UNKNOWN_ERROR;
}

}  // namespace

ResponseStatuses exchangeRead(const CorePort& core, const std::vector<uint8_t>& request, ReplyBuffer& reply,
                              Manner manner) {
  const FailureReport failure(manner, "GetParameter");
  switch (read(core, request, reply, manner, failure)) {
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
                               Manner manner) {
  const Reached reached = send(core, request.data(), request.size(), std::nullopt, reply, manner);
  return statusAfter(reached, reply, FailureReport(manner, "SetParameter"));
}

ResponseStatuses exchangeMessage(const CorePort& core, const uint8_t* frame, std::size_t size, int wait_us,
                                 ReplyBuffer& reply, Manner manner) {
  const Reached reached = send(core, frame, size, wait_us, reply, manner);
  return statusAfter(reached, reply, FailureReport(manner, "sendMessage"));
}

}  // namespace keocam
