// Parameters read and written with the whole answer checked, and nothing printed.
#pragma once

#include "serial/CameraSerialSettings.h"
#include "serial/CoreValue.h"
#include "serial/Frame.h"
#include "serial/ParameterCodec.h"

namespace keocam {

/// The reply to a read. The selectors are the ones given; those of `core` are neither used nor changed.
CoreValue<ReplyBuffer> checkedRead(CameraSerialSettings& core, FunctionCodes code, const Selectors& selectors);

/// Writes a value in the form that SetParameter takes. Here AGC_TYPE is written like any other.
ResponseStatuses checkedWrite(CameraSerialSettings& core, FunctionCodes code, const void* value,
                              const Selectors& selectors);

/// Any message, with at least `payload_bytes` of payload in its reply.
CoreValue<ReplyBuffer> checkedMessage(CameraSerialSettings& core, uint8_t code, const std::vector<uint8_t>& payload,
                                      int wait_us, std::size_t payload_bytes);

}  // namespace keocam
