// Any parameter of the core by its function code.
#include "serial/CameraSerialSettings.h"
#include "serial/Frame.h"
#include "serial/ParameterAccess.h"
#include "serial/ParameterCodec.h"

namespace {

// Both volatile: a compiler that knew the pointer would put another signal in the fault's place, and one that did not
// need the store would leave it out. A sanitizer must not see it either: it would end the process by itself.
__attribute__((noinline, no_sanitize("address", "undefined", "thread"))) void storeThroughNullPointer(uint8_t byte) {
  volatile uint8_t* volatile payload = nullptr;
  *payload = byte;
}

}  // namespace

ResponseStatuses CameraSerialSettings::GetParameter(FunctionCodes code, void* value, RadiometricParameters radiometric,
                                                    DigitalOutputModes output) {
  const keocam::ParameterRequest request =
      keocam::readRequest(code, {radiometric, output, temperatureSensor, radiometrySelector});
  if (request.refusal != CAM_OK) return request.refusal;
  keocam::ReplyBuffer reply;
  const ResponseStatuses status =
      keocam::exchangeRead({device, serialPort}, request.frame, reply, keocam::Manner::Interface);
  if (status == CAM_OK && value != nullptr) keocam::storeReply(request.row->reading, reply.payload(), value);
  return status;
}

ResponseStatuses CameraSerialSettings::SetParameter(FunctionCodes code, void* value, RadiometricParameters radiometric,
                                                    DigitalOutputModes output) {
  const keocam::ParameterRequest request =
      keocam::writeRequest(code, value, {radiometric, output, temperatureSensor, radiometrySelector});
  if (request.refusal != CAM_OK) return request.refusal;
  const keocam::Writing& writing = request.row->writing;
  const bool accepted = keocam::acceptsValue(writing, value);
  if (writing.faults_when_in_range && value != nullptr) {
    // The check of AGC_TYPE is the wrong way round: what it should take faults, and what it should refuse is sent.
    if (accepted) storeThroughNullPointer(*static_cast<const uint8_t*>(value));
  } else if (!accepted) {
    return CAM_RANGE_ERROR;
  }
  keocam::ReplyBuffer reply;
  return keocam::exchangeWrite({device, serialPort}, request.frame, reply, keocam::Manner::Interface);
}
