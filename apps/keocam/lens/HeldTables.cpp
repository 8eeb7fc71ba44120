#include "apps/keocam/lens/HeldTables.h"

#include <algorithm>

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CommandFailure.h"
#include "calibration/SffcProtocol.h"
#include "serial/CheckedExchange.h"

namespace keocam::cli {
namespace {

constexpr uint8_t kLowSlot = 0;
constexpr uint8_t kMiddleSlot = 1;

ReplyBuffer answerTo(CoreSession& session, const SffcCommand& command, const std::vector<uint8_t>& payload,
                     std::size_t least_bytes) {
  const CoreValue<ReplyBuffer> reply = session.attempt(
      [&] { return checkedMessage(session.core(), command.code, payload, command.wait_us, least_bytes); });
  if (reply.ok()) return reply.value;
  throw CommandFailure(exitStatusOf(reply.status), "The tables of the core of " + nameOf(session.camera()) +
                                                       " could not be read: " + wordsFor(reply.status) + ". " +
                                                       adviceOn(reply.status));
}

HeldTable tableIn(CoreSession& session, uint8_t slot) {
  const SffcRegion region =
      regionOf(answerTo(session, kSlotRegion, slotPayload(slot), kSlotRegion.answer_bytes).payload());
  HeldTable table;
  table.size_bytes = region.size_bytes;
  for (uint32_t i = 0; i < HeldTable::kSamples; ++i) {
    const uint32_t address = region.address + HeldTable::offsetOf(i, region.size_bytes);
    const uint32_t size = HeldTable::bytesOf(i, region.size_bytes);
    if (size == 0) continue;
    const ReplyBuffer reply = answerTo(session, kReadMemory, readPayload(address, size), size);
    std::copy_n(reply.payload(), size, table.samples[i].begin());
  }
  return table;
}

}  // namespace

HeldTables readHeldTables(CoreSession& session) {
  HeldTables held;
  held.low = tableIn(session, kLowSlot);
  held.middle = tableIn(session, kMiddleSlot);
  return held;
}

}  // namespace keocam::cli
