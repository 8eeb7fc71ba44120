// Changing lenses with progress, a way to stop, and an account of what came of it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "serial/CameraSerialSettings.h"

namespace keocam {

/// The core's two tables: one for LowRange, one for MiddleRange and HighRange.
enum class SffcTable : uint8_t { Low, High };

enum class TransferPhase : uint8_t { Erasing, Writing, Verifying };

/// How far one phase of one table is.
struct TransferProgress {
  SffcTable table;
  TransferPhase phase;
  uint32_t done_bytes;
  uint32_t total_bytes;
};

/// Called on the caller's thread before each block and piece and once at the end of each phase. False cancels: nothing
/// more is sent for the tables, and the call that transfers returns. At the end of a phase it leaves the table as that
/// phase has made it: erased, written whole, or verified. At the end of the second table's last phase it comes too
/// late, and the change is completed: all that is left is to have the tables used. It must neither use the camera nor
/// replace the calibration in force.
using TransferObserver = std::function<bool(const TransferProgress&)>;

enum class TableState : uint8_t {
  Untouched,      ///< nothing was sent, or only questions
  Written,        ///< all of it, and the core took every piece
  Verified,       ///< written, and read back the same
  PartlyWritten,  ///< erased in part or whole, and not written to its end: failed or cancelled
  Differs,        ///< written, but read back otherwise
  NotVerified,    ///< written, but not read back to its end: failed or cancelled
};

enum class LensChangeEnd : uint8_t {
  Complete,
  UnknownLens,  ///< nothing was changed
  Cancelled,    ///< by the observer; the core has not been told to use the tables
  Failed,       ///< the core did not do as told; `failure` says what
};

struct LensChange {
  LensChangeEnd end = LensChangeEnd::Complete;
  TableState low = TableState::Untouched;
  TableState high = TableState::Untouched;
  std::string failure;  ///< a sentence for a person; empty unless Failed
};

enum class Verification : uint8_t { ReadBack, None };

/// Selects a lens as CameraSerialSettings::SetLens does, and tells how that went. It checks every answer of the core
/// whole, prints nothing, and ends at the first failure; but a piece of a table whose answer does not come, or comes
/// damaged, is sent again, twice at most. The lens is selected once it is found; a lens without tables is Complete with
/// both of them Untouched. Call it again after a failure or a cancellation: both tables are erased and written anew.
/// Throws what `observer` throws.
LensChange changeLens(CameraSerialSettings& core, const std::string& lens, const TransferObserver& observer,
                      Verification verification);

}  // namespace keocam
