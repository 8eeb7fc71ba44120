#include "calibration/SffcExchange.h"

#include "serial/CheckedExchange.h"
#include "serial/ParameterAccess.h"

namespace keocam {
namespace {

constexpr int kAttempts = 3;

// A sound answer to a damaged request, of which the core has carried out nothing.
bool saysDamaged(ResponseStatuses status) { return status == CAM_CHECKSUM_ERROR || status == CAM_TIMEOUT_ERROR; }

PieceOutcome tryPiece(SerialExchange& port, uint8_t code, const std::vector<uint8_t>& frame, std::size_t answer_bytes,
                      ReplyBuffer& reply) {
  reply = {};
  port.discardReceived();
  if (!port.write(frame.data(), frame.size())) return PieceOutcome::NotSent;
  // Who knows how long the answer will be need not wait for the line to fall silent behind it: some 3 % of a transfer.
  if (!port.read(reply, kPieceAnswer_ms, kFrameOverhead_bytes + answer_bytes)) return PieceOutcome::NotAnswered;
  const ResponseStatuses status = reply.status();
  if (verifyReply(reply, code, status == CAM_OK ? answer_bytes : 0) != CAM_OK) return PieceOutcome::Damaged;
  if (status == CAM_OK) return PieceOutcome::Done;
  return saysDamaged(status) ? PieceOutcome::Damaged : PieceOutcome::Refused;
}

}  // namespace

std::vector<uint8_t> frameOf(const SffcCommand& command, const std::vector<uint8_t>& payload) {
  return makeRequest(command.code, payload.data(), static_cast<uint16_t>(payload.size()));
}

std::optional<ReplyBuffer> askAsMembersDo(CameraSerialSettings& core, const SffcCommand& command,
                                          const std::vector<uint8_t>& payload) {
  const std::vector<uint8_t> frame = frameOf(command, payload);
  ReplyBuffer reply;
  const ResponseStatuses status = exchangeMessage({core.device, core.serialPort}, frame.data(), frame.size(),
                                                  command.wait_us, reply, Manner::Interface);
  return status == CAM_OK ? std::optional<ReplyBuffer>(reply) : std::nullopt;
}

std::optional<ReplyBuffer> askChecked(CameraSerialSettings& core, const SffcCommand& command,
                                      const std::vector<uint8_t>& payload) {
  const CoreValue<ReplyBuffer> reply =
      checkedMessage(core, command.code, payload, command.wait_us, command.answer_bytes);
  return reply.ok() ? std::optional<ReplyBuffer>(reply.value) : std::nullopt;
}

PieceOutcome exchangePiece(SerialExchange& port, const SffcCommand& command, const std::vector<uint8_t>& payload,
                           std::size_t answer_bytes, ReplyBuffer& reply) {
  const std::vector<uint8_t> frame = frameOf(command, payload);
  PieceOutcome outcome = PieceOutcome::NotSent;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    outcome = tryPiece(port, command.code, frame, answer_bytes, reply);
    if (outcome != PieceOutcome::NotAnswered && outcome != PieceOutcome::Damaged) break;
  }
  return outcome;
}

}  // namespace keocam
