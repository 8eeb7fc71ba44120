#include "serial/CheckedExchange.h"

#include "serial/ParameterAccess.h"

namespace keocam {
namespace {

CorePort portOf(const CameraSerialSettings& core) { return {core.device, core.serialPort}; }

// What the core says counts only if the reply is sound. A refusal has no payload to speak of.
ResponseStatuses checked(ResponseStatuses status, const ReplyBuffer& reply, uint8_t code, std::size_t payload_bytes) {
  if (reply.size == 0) return status;
  const ResponseStatuses soundness = verifyReply(reply, code, status == CAM_OK ? payload_bytes : 0);
  return soundness != CAM_OK ? soundness : status;
}

}  // namespace

CoreValue<ReplyBuffer> checkedRead(CameraSerialSettings& core, FunctionCodes code, const Selectors& selectors) {
  CoreValue<ReplyBuffer> reply{UNKNOWN_ERROR, {}};
  const ParameterRequest request = readRequest(code, selectors);
  reply.status = request.refusal;
  if (!reply.ok()) return reply;
  const ResponseStatuses status = exchangeRead(portOf(core), request.frame, reply.value, Manner::Checked);
  reply.status = checked(status, reply.value, code, request.row->reading.reply_bytes);
  return reply;
}

ResponseStatuses checkedWrite(CameraSerialSettings& core, FunctionCodes code, const void* value,
                              const Selectors& selectors) {
  const ParameterRequest request = writeRequest(code, value, selectors);
  if (request.refusal != CAM_OK) return request.refusal;
  if (!acceptsValue(request.row->writing, value)) return CAM_RANGE_ERROR;
  ReplyBuffer reply;
  const ResponseStatuses status = exchangeWrite(portOf(core), request.frame, reply, Manner::Checked);
  return checked(status, reply, code, 0);
}

CoreValue<ReplyBuffer> checkedMessage(CameraSerialSettings& core, uint8_t code, const std::vector<uint8_t>& payload,
                                      int wait_us, std::size_t payload_bytes) {
  const std::vector<uint8_t> frame = makeRequest(code, payload.data(), static_cast<uint16_t>(payload.size()));
  CoreValue<ReplyBuffer> reply{UNKNOWN_ERROR, {}};
  const ResponseStatuses status =
      exchangeMessage(portOf(core), frame.data(), frame.size(), wait_us, reply.value, Manner::Checked);
  reply.status = checked(status, reply.value, code, payload_bytes);
  return reply;
}

}  // namespace keocam
