#include "calibration/SffcTransfer.h"

#include <unistd.h>

#include <algorithm>

#include "base/Log.h"
#include "serial/CheckedExchange.h"
#include "serial/ParameterAccess.h"

namespace keocam {
namespace {

constexpr int kQueryWait_us = 10'000;
constexpr int kEraseWait_us = 1'000'000;
constexpr uint32_t kAnswer_ms = 500;
constexpr useconds_t kPoll_us = 1'000;
constexpr int kPolls = 1'000;

// The line that names the wrong size is the first member's for both tables.
constexpr const char* kSizeLine = "CameraSerialSettings::switchSFFC1(): Wrong SFFC table size: ";

std::vector<uint8_t> frameOf(uint8_t code, const std::vector<uint8_t>& payload) {
  return makeRequest(code, payload.data(), static_cast<uint16_t>(payload.size()));
}

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
  const auto region = ask(kSlotRegion, slotPayload(slot_.number), kQueryWait_us, 8);
  const auto geometry = region ? ask(kFlashGeometry, geometryPayload(), kQueryWait_us, 8) : std::nullopt;
  if (!geometry) {
    fail("", "The core does not tell where its table is.");
    return false;
  }
  region_ = regionOf(region->payload());
  geometry_ = geometryOf(geometry->payload());
  // One size serves for both tables.
  if (region_.size_bytes == static_cast<uint32_t>(lens_.sffcTableSize)) return true;
  const std::string expected = std::to_string(lens_.sffcTableSize);
  const std::string reported = std::to_string(region_.size_bytes);
  if (manner_ == TransferManner::Interface) {
    printErrorLine(kSizeLine + expected + " expected by the calibration data, " + reported +
                   " reported by the camera.");
  }
  failure_ = "The lens' table has " + expected + " bytes, but the core's place for it has " + reported + ".";
  return false;
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
    if (!ask(kEraseBlock, erasePayload(block), kEraseWait_us, 0)) {
      fail("Error deleting memory block.", "The core did not erase block " + std::to_string(block) + ".");
      return false;
    }
  }
  return proceed(TransferPhase::Erasing, region_.size_bytes);
}

bool SffcTransfer::writePieces() {
  SerialExchange port(core_.device, core_.serialPort);
  const uint32_t last_bytes = region_.size_bytes % kPiece_bytes;
  const uint32_t full_bytes = region_.size_bytes - last_bytes;
  for (uint32_t offset = 0; offset < full_bytes; offset += kPiece_bytes) {
    if (!proceed(TransferPhase::Writing, offset) || !writeFullPiece(port, offset)) return false;
  }
  if (last_bytes > 0) {
    if (!proceed(TransferPhase::Writing, full_bytes) || !writeLastPiece(port, full_bytes, last_bytes)) return false;
  }
  // All is written: a wish to cancel comes too late.
  static_cast<void>(proceed(TransferPhase::Writing, region_.size_bytes));
  return true;
}

bool SffcTransfer::writeFullPiece(SerialExchange& port, uint32_t offset) {
  const std::vector<uint8_t> frame = pieceFrame(offset, kPiece_bytes);
  if (!port.write(frame.data(), frame.size())) {
    fail("Error writing message to camera.", "The camera took no bytes for the core.");
    return false;
  }
  ReplyBuffer reply;
  if (!port.read(reply, kAnswer_ms, replyRoom(0))) {
    fail("Error reading message from camera. " + std::to_string(reply.size), "The core did not answer.");
    return false;
  }
  if (manner_ == TransferManner::Interface || accepted(reply, kWriteMemory, 0)) return true;
  fail("", "The core did not take the bytes at " + std::to_string(offset) + ".");
  return false;
}

bool SffcTransfer::writeLastPiece(SerialExchange& port, uint32_t offset, uint32_t size) {
  const std::vector<uint8_t> frame = pieceFrame(offset, size);
  const bool written = port.write(frame.data(), frame.size());
  if (!written) fail("Error writing message to camera.", "The camera took no bytes for the core.");
  // In the interface's manner the answer is awaited all the same.
  if (!written && manner_ == TransferManner::Checked) return false;
  for (int polls = 0; port.ready() < kFrameOverhead_bytes && polls < kPolls; ++polls) usleep(kPoll_us);
  ReplyBuffer reply;
  if (!port.receive(reply, kAnswer_ms, replyRoom(0))) {
    fail("Error reading message from camera.", "The core did not answer.");
    return false;
  }
  if (!written) return false;
  if (manner_ == TransferManner::Interface || accepted(reply, kWriteMemory, 0)) return true;
  fail("", "The core did not take the bytes at " + std::to_string(offset) + ".");
  return false;
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
      fail("", "The core holds other bytes than were written, at " + std::to_string(offset) + ".");
      return TableState::Differs;
    }
  }
  static_cast<void>(proceed(TransferPhase::Verifying, region_.size_bytes));
  return TableState::Verified;
}

bool SffcTransfer::readPiece(SerialExchange& port, uint32_t address, uint32_t size, ReplyBuffer& reply) {
  const std::vector<uint8_t> frame = frameOf(kReadMemory, readPayload(address, size));
  if (!port.write(frame.data(), frame.size())) {
    fail("", "The camera took no bytes for the core.");
    return false;
  }
  if (port.read(reply, kAnswer_ms, replyRoom(size)) && accepted(reply, kReadMemory, size)) return true;
  fail("", "The core did not give its table back.");
  return false;
}

// Who knows how long the answer will be need not wait for the line to fall silent behind it: some 3 % of a transfer.
std::size_t SffcTransfer::replyRoom(std::size_t payload_bytes) const {
  return manner_ == TransferManner::Checked ? kFrameOverhead_bytes + payload_bytes : kReplyRoom_bytes;
}

std::optional<ReplyBuffer> SffcTransfer::ask(uint8_t code, const std::vector<uint8_t>& payload, int wait_us,
                                             std::size_t payload_bytes) {
  if (manner_ == TransferManner::Checked) {
    const CoreValue<ReplyBuffer> reply = checkedMessage(core_, code, payload, wait_us, payload_bytes);
    return reply.ok() ? std::optional<ReplyBuffer>(reply.value) : std::nullopt;
  }
  ReplyBuffer reply;
  const std::vector<uint8_t> frame = frameOf(code, payload);
  const ResponseStatuses status =
      exchangeMessage({core_.device, core_.serialPort}, frame.data(), frame.size(), wait_us, reply, Manner::Interface);
  return status == CAM_OK ? std::optional<ReplyBuffer>(reply) : std::nullopt;
}

bool SffcTransfer::accepted(const ReplyBuffer& reply, uint8_t code, std::size_t payload_bytes) const {
  return reply.status() == CAM_OK && verifyReply(reply, code, payload_bytes) == CAM_OK;
}

bool SffcTransfer::proceed(TransferPhase phase, uint32_t done_bytes) {
  if (observer_ && !observer_({slot_.table, phase, done_bytes, region_.size_bytes})) cancelled_ = true;
  return !cancelled_;
}

void SffcTransfer::fail(const std::string& line, const std::string& sentence) {
  if (manner_ == TransferManner::Interface && !line.empty()) printErrorLine(slot_.member + line);
  failure_ = sentence;
}

std::vector<uint8_t> SffcTransfer::pieceFrame(uint32_t offset, uint32_t size) const {
  return frameOf(kWriteMemory, writePayload(region_.address + offset, slot_.bytesOf(lens_) + offset, size));
}

}  // namespace keocam
