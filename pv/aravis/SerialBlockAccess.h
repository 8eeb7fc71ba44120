// A serial port through file access registers that lie side by side: an operation is one write of memory and, once it
// is done, one read.
#pragma once

#include <optional>
#include <string>

#include "pv/aravis/SerialAccess.h"

namespace keocam {

/// The register feature "FileAccessBlock", 512 bytes of big-endian words:
///
///     +00 FileSize (bytes waiting)   +10 FileAccessOffset
///     +04 FileOperationStatus        +14 FileAccessLength
///     +08 FileOperationResult        +18 FileOperationExecute
///     +0C FileOperationSelector      +1C FileAccessBuffer, 484 bytes
///
/// A write from +0C on sets an operation off once all of its words are stored.
class SerialBlockAccess : public SerialAccess {
 public:
  /// Whether the device has the block.
  static bool offeredBy(ArvDevice* device);

  explicit SerialBlockAccess(std::string port);

  PvResult open(ArvDevice* device) override;
  PvResult close(ArvDevice* device) override;
  uint32_t pieceSize() const override;
  PvResult write(ArvDevice* device, const uint8_t* data, uint32_t size, uint32_t& taken) override;
  PvResult waiting(ArvDevice* device, uint32_t& count) override;
  PvResult read(ArvDevice* device, uint8_t* data, uint32_t capacity, uint32_t& count) override;

 private:
  struct Operation;
  PvResult perform(ArvDevice* device, const Operation& operation, uint32_t& moved) const;

  std::string port_;
  uint64_t address_ = 0;
};

}  // namespace keocam
