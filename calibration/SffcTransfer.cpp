#include "calibration/SffcTransfer.h"

#include <unistd.h>

#include <algorithm>

#include "base/Log.h"
#include "calibration/SffcExchange.h"

namespace keocam {
namespace {

constexpr useconds_t kPoll_us = 1'000;
constexpr int kPolls = 1'000;

// The line that names the wrong size is the first member's for both tables.
constexpr const char* kSizeLine = "CameraSerialSettings::switchSFFC1(): Wrong SFFC table size: ";
constexpr const char* kWriteLine = "Error writing message to camera.";
constexpr const char* kReadLine = "Error reading message from camera.";

constexpr const char* kNotSent = "The camera took no bytes for the core.";

}  // namespace

const SffcSlot kLowSlot = {0, SffcTable::Low, [](const CalibrationStruct& lens) { return lens.sffcLowRange + 0; },
                           "CameraSerialSettings::switchSFFC1(): "};
const SffcSlot kHighSlot = {1, SffcTable::High, [](const CalibrationStruct& lens) { return lens.sffcHighRange + 0; },
                            "CameraSerialSettings::switchSFFC2: "};

SffcTransfer::SffcTransfer(CameraSerialSettings& core, const SffcSlot& slot, const CalibrationStruct& lens,
                           TransferManner manner, const TransferObserver& observer)
    : core_(core), slot_(slot), lens_(lens), manner_(manner), observer_(observer) {}

TableState SffcTransfer::write() {
  if (!askSizes() || !proceed(TransferPhase::Erasing, 0)) return TableState::Untouched;
  return erase() && writePieces() ? TableState::Written : TableState::PartlyWritten;
}

bool SffcTransfer::askSizes() {
  const auto region = ask(kSlotRegion, slotPayload(slot_.number));
  // The members ask both questions, whatever comes of the first.
  const bool ask_on = region || manner_ == TransferManner::Interface;
  const auto geometry = ask_on ? ask(kFlashGeometry, geometryPayload()) : std::nullopt;
  if (!region || !geometry) return fail("The core does not tell where its table is.");
  region_ = regionOf(region->payload());
  geometry_ = geometryOf(geometry->payload());
  // One size serves for both tables.
  if (region_.size_bytes == static_cast<uint32_t>(lens_.sffcTableSize)) return true;
  const std::string expected = std::to_string(lens_.sffcTableSize);
  const std::string reported = std::to_string(region_.size_bytes);
  tell(kSizeLine + expected + " expected by the calibration data, " + reported + " reported by the camera.");
  return fail("The lens' table has " + expected + " bytes, but the core's place for it has " + reported + ".");
}

bool SffcTransfer::erase() {
  const EraseRange range = eraseRange(region_, geometry_);
  for (uint32_t i = 0; i < range.count; ++i) {
    const uint64_t done = uint64_t{i} * geometry_.block_bytes;
    // Of the first block the caller has asked.
    if (i > 0 &&
        !proceed(TransferPhase::Erasing, static_cast<uint32_t>(std::min<uint64_t>(done, region_.size_bytes)))) {
      return false;
    }
    const auto block = static_cast<uint16_t>((range.first + i) & 0xFFFF);
    if (!ask(kEraseBlock, erasePayload(block))) {
      tell(slot_.member + std::string("Error deleting memory block."));
      return fail("The core did not erase block " + std::to_string(block) + ".");
    }
  }
  return proceed(TransferPhase::Erasing, region_.size_bytes);
}

bool SffcTransfer::writePieces() {
  SerialExchange port(core_.device, core_.serialPort);
  for (uint32_t offset = 0; offset < region_.size_bytes; offset += kPiece_bytes) {
    const uint32_t size = std::min(kPiece_bytes, region_.size_bytes - offset);
    if (!proceed(TransferPhase::Writing, offset) || !writePiece(port, offset, size)) return false;
  }
  // All is written: a wish to cancel comes too late for this table.
  static_cast<void>(proceed(TransferPhase::Writing, region_.size_bytes));
  return true;
}

bool SffcTransfer::writePiece(SerialExchange& port, uint32_t offset, uint32_t size) {
  const std::vector<uint8_t> payload = writePayload(region_.address + offset, slot_.bytesOf(lens_) + offset, size);
  if (manner_ == TransferManner::Checked) return writePieceChecked(port, offset, payload);
  const std::vector<uint8_t> frame = frameOf(kWriteMemory, payload);
  return size == kPiece_bytes ? writeFullPiece(port, frame) : writeLastPiece(port, frame);
}

bool SffcTransfer::writePieceChecked(SerialExchange& port, uint32_t offset, const std::vector<uint8_t>& payload) {
  ReplyBuffer reply;
  switch (exchangePiece(port, kWriteMemory, payload, kWriteMemory.answer_bytes, reply)) {
    case PieceOutcome::Done:
      return true;
    case PieceOutcome::NotSent:
      return fail(kNotSent);
    case PieceOutcome::NotAnswered:
      return fail("The core did not answer.");
    case PieceOutcome::Damaged:
      return fail("The core's answer about the bytes at " + std::to_string(offset) + " came damaged again and again.");
    case PieceOutcome::Refused:
      break;
  }
  return fail("The core did not take the bytes at " + std::to_string(offset) + ".");
}

bool SffcTransfer::writeFullPiece(SerialExchange& port, const std::vector<uint8_t>& frame) {
  if (!port.write(frame.data(), frame.size())) {
    tell(slot_.member + std::string(kWriteLine));
    return false;
  }
  ReplyBuffer reply;
  if (port.read(reply, kPieceAnswer_ms)) return true;
  tell(slot_.member + std::string(kReadLine) + ' ' + std::to_string(reply.size));
  return false;
}

// The answer is awaited even if the camera took no bytes.
bool SffcTransfer::writeLastPiece(SerialExchange& port, const std::vector<uint8_t>& frame) {
  const bool written = port.write(frame.data(), frame.size());
  if (!written) tell(slot_.member + std::string(kWriteLine));
  for (int polls = 0; port.ready() < kFrameOverhead_bytes && polls < kPolls; ++polls) usleep(kPoll_us);
  ReplyBuffer reply;
  const bool read = port.receive(reply, kPieceAnswer_ms);
  if (!read) tell(slot_.member + std::string(kReadLine));
  return written && read;
}

TableState SffcTransfer::verify() {
  SerialExchange port(core_.device, core_.serialPort);
  const uint8_t* const table = slot_.bytesOf(lens_);
  for (uint32_t offset = 0; offset < region_.size_bytes; offset += kPiece_bytes) {
    if (!proceed(TransferPhase::Verifying, offset)) return TableState::NotVerified;
    ReplyBuffer reply;
    const uint32_t size = std::min(kPiece_bytes, region_.size_bytes - offset);
    if (!readPiece(port, region_.address + offset, size, reply)) return TableState::NotVerified;
    if (!std::equal(reply.payload(), reply.payload() + size, table + offset)) {
      fail("The core holds other bytes than were written, at " + std::to_string(offset) + ".");
      return TableState::Differs;
    }
  }
  static_cast<void>(proceed(TransferPhase::Verifying, region_.size_bytes));
  return TableState::Verified;
}

bool SffcTransfer::readPiece(SerialExchange& port, uint32_t address, uint32_t size, ReplyBuffer& reply) {
  const PieceOutcome outcome = exchangePiece(port, kReadMemory, readPayload(address, size), size, reply);
  if (outcome == PieceOutcome::Done) return true;
  return fail(outcome == PieceOutcome::NotSent ? kNotSent : "The core did not give its table back.");
}

std::optional<ReplyBuffer> SffcTransfer::ask(const SffcCommand& command, const std::vector<uint8_t>& payload) {
  return manner_ == TransferManner::Checked ? askChecked(core_, command, payload)
                                            : askAsMembersDo(core_, command, payload);
}

bool SffcTransfer::proceed(TransferPhase phase, uint32_t done_bytes) {
  if (observer_ && !observer_({slot_.table, phase, done_bytes, region_.size_bytes})) cancelled_ = true;
  return !cancelled_;
}

void SffcTransfer::tell(const std::string& line) const {
  if (manner_ == TransferManner::Interface) printErrorLine(line);
}

bool SffcTransfer::fail(const std::string& sentence) {
  failure_ = sentence;
  return false;
}

}  // namespace keocam
