#include "serial/CheckedExchange.h"

#include "serial/ParameterAccess.h"

namespace keocam {
namespace {

CorePort portOf(const CameraSerialSettings& core) { return {core.device, core.serialPort}; }

}  // namespace

CoreValue<ReplyBuffer> checkedRead(CameraSerialSettings& core, FunctionCodes code, const Selectors& selectors) {
  CoreValue<ReplyBuffer> reply{UNKNOWN_ERROR, {}};
  const ParameterRequest request = readRequest(code, selectors);
  reply.status = request.refusal;
  if (reply.ok()) reply.status = exchangeRead(portOf(core), request.frame, reply.value, Report::Silent);
  if (reply.ok()) reply.status = verifyReply(reply.value, code, request.row->reading.reply_bytes);
  return reply;
}

ResponseStatuses checkedWrite(CameraSerialSettings& core, FunctionCodes code, const void* value,
                              const Selectors& selectors) {
  const ParameterRequest request = writeRequest(code, value, selectors);
  if (request.refusal != CAM_OK) return request.refusal;
  if (!acceptsValue(request.row->writing, value)) return CAM_RANGE_ERROR;
  ReplyBuffer reply;
  const ResponseStatuses status = exchangeWrite(portOf(core), request.frame, reply, Report::Silent);
  return status == CAM_OK ? verifyReply(reply, code, 0) : status;
}

}  // namespace keocam
