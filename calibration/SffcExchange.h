// The core's commands for its tables carried out: in the manner of the interface's members, or with every answer
// checked whole and nothing printed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "calibration/SffcProtocol.h"
#include "serial/CameraSerialSettings.h"
#include "serial/Frame.h"
#include "serial/SerialExchange.h"

namespace keocam {

/// A message to the core, framed.
std::vector<uint8_t> frameOf(const SffcCommand& command, const std::vector<uint8_t>& payload);

/// The reply, if there is one and its status is CAM_OK. Failures are told on standard error, and nothing but the status
/// is looked at.
std::optional<ReplyBuffer> askAsMembersDo(CameraSerialSettings& core, const SffcCommand& command,
                                          const std::vector<uint8_t>& payload);

/// The reply, if it is sound and its status is CAM_OK.
std::optional<ReplyBuffer> askChecked(CameraSerialSettings& core, const SffcCommand& command,
                                      const std::vector<uint8_t>& payload);

/// What came of a message about one piece of a table.
enum class PieceOutcome : uint8_t {
  Done,
  NotSent,      ///< the camera took no bytes
  NotAnswered,  ///< in time
  Damaged,      ///< the answer, or the request by what the answer says
  Refused,      ///< by a sound answer
};

/// Sends a message about a piece, on a port that stays open for all of them, and checks its answer, which is to have
/// `answer_bytes` of payload. One that is not answered, or damaged, is sent again, twice at most: reading a piece and
/// writing the same bytes once more change nothing. What has come late of earlier answers is thrown away before.
PieceOutcome exchangePiece(SerialExchange& port, const SffcCommand& command, const std::vector<uint8_t>& payload,
                           std::size_t answer_bytes, ReplyBuffer& reply);

}  // namespace keocam
