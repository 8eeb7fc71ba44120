// One table of shutterless flat-field correction on its way into the core's flash, or back from it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "calibration/CalibrationStruct.h"
#include "calibration/LensChange.h"
#include "calibration/SffcProtocol.h"
#include "serial/CameraSerialSettings.h"
#include "serial/SerialExchange.h"

namespace keocam {

/// One of the core's two tables, and how the interface speaks of it.
struct SffcSlot {
  uint8_t number;
  SffcTable table;
  const uint8_t* (*bytesOf)(const CalibrationStruct& lens);
  const char* member;  ///< the beginning of its lines on standard error
};
extern const SffcSlot kLowSlot;
extern const SffcSlot kHighSlot;

/// How a transfer goes about its work.
enum class TransferManner : uint8_t {
  Interface,  ///< lines on standard error; of a piece's reply nothing is looked at
  Checked,    ///< nothing is printed; every reply is checked whole; a piece may be sent again, see exchangePiece
};

class SffcTransfer {
 public:
  /// All that is referred to must outlive this object. An empty observer is never asked.
  SffcTransfer(CameraSerialSettings& core, const SffcSlot& slot, const CalibrationStruct& lens, TransferManner manner,
               const TransferObserver& observer);

  /// Erases the slot and writes the table: Untouched, Written or PartlyWritten.
  TableState write();

  /// Reads the whole table back and compares it: Verified, Differs or NotVerified. After write().
  TableState verify();

  bool cancelled() const { return cancelled_; }
  const std::string& failure() const { return failure_; }  ///< a sentence, empty if there was none

 private:
  bool askSizes();
  bool erase();
  bool writePieces();
  bool writePiece(SerialExchange& port, uint32_t offset, uint32_t size);
  bool writePieceChecked(SerialExchange& port, uint32_t offset, const std::vector<uint8_t>& payload);
  bool writeFullPiece(SerialExchange& port, const std::vector<uint8_t>& frame);
  bool writeLastPiece(SerialExchange& port, const std::vector<uint8_t>& frame);
  bool readPiece(SerialExchange& port, uint32_t address, uint32_t size, ReplyBuffer& reply);

  std::optional<ReplyBuffer> ask(const SffcCommand& command, const std::vector<uint8_t>& payload);
  bool proceed(TransferPhase phase, uint32_t done_bytes);
  void tell(const std::string& line) const;
  bool fail(const std::string& sentence);

  CameraSerialSettings& core_;
  const SffcSlot& slot_;
  const CalibrationStruct& lens_;
  TransferManner manner_;
  const TransferObserver& observer_;
  SffcRegion region_{};
  FlashGeometry geometry_{};
  bool cancelled_ = false;
  std::string failure_;
};

}  // namespace keocam
