// Requests and replies of single parameters, as bytes. Nothing here reaches a port.
#pragma once

#include <cstdint>
#include <vector>

#include "serial/ParameterTable.h"
#include "serial/ResponseStatuses.h"

namespace keocam {

/// The values of all selectors; a row looks at its own.
struct Selectors {
  RadiometricParameters radiometric = RADIOMETRIC_NONE;
  DigitalOutputModes output = DIGITAL_OUTPUT_NONE;
  uint32_t temperature_sensor = 0;
  uint32_t radiometry = 0;
};

/// What to send, or why nothing is to be sent.
struct ParameterRequest {
  ResponseStatuses refusal;  ///< CAM_OK: send `frame`
  const ParameterRow* row;   ///< null for an unknown code
  std::vector<uint8_t> frame;
};

/// The request that reads a parameter. A selector without such a value is sent as zeros.
ParameterRequest readRequest(FunctionCodes code, const Selectors& selectors);

/// Stores the reply's payload in the form that the row gives callers: a word in the host's order, or the bytes.
void storeReply(const Reading& reading, const uint8_t* payload, void* value);

/// Whether the row accepts the caller's value. A null value is accepted by rows without one.
bool acceptsValue(const Writing& writing, const void* value);

/// The request that writes a parameter, whether the row accepts the value or not. DIGITAL_OUTPUT_MODE and
/// RADIOMETRIC_PARAMETER without a value of their selectors are CAM_RANGE_ERROR; RADIOMETRY is then sent as zeros.
ParameterRequest writeRequest(FunctionCodes code, const void* value, const Selectors& selectors);

}  // namespace keocam
