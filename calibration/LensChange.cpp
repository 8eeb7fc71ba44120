#include "calibration/LensChange.h"

#include <unistd.h>

#include "calibration/Calibration.h"
#include "calibration/LensLookup.h"
#include "calibration/SffcExchange.h"
#include "calibration/SffcTransfer.h"
#include "serial/CheckedExchange.h"

namespace keocam {
namespace {

// False ends the change.
bool changeTable(CameraSerialSettings& core, const SffcSlot& slot, const CalibrationStruct& lens,
                 const TransferObserver& observer, Verification verification, TableState& state, LensChange& change) {
  SffcTransfer transfer(core, slot, lens, TransferManner::Checked, observer);
  state = transfer.write();
  if (state == TableState::Written && verification == Verification::ReadBack && !transfer.cancelled()) {
    state = transfer.verify();
  }
  const bool whole = state == (verification == Verification::ReadBack ? TableState::Verified : TableState::Written);
  // Behind the second table nothing is left that is worth stopping.
  if (whole && (slot.table == SffcTable::High || !transfer.cancelled())) return true;
  change.end = transfer.cancelled() ? LensChangeEnd::Cancelled : LensChangeEnd::Failed;
  change.failure = transfer.failure();
  return false;
}

void fail(LensChange& change, const char* sentence) {
  change.end = LensChangeEnd::Failed;
  change.failure = sentence;
}

}  // namespace

LensChange changeLens(CameraSerialSettings& core, const std::string& name, const TransferObserver& observer,
                      Verification verification) {
  LensChange change;
  const std::optional<int32_t> index = findLens(name);
  if (!index) {
    change.end = LensChangeEnd::UnknownLens;
    return change;
  }
  const LensNotReady not_ready(core);
  currentLensNumber = *index;
  const CalibrationStruct& lens = calibrationVect[static_cast<std::size_t>(*index)];
  if (lens.sffcTableSize < 1) return change;
  if (!changeTable(core, kLowSlot, lens, observer, verification, change.low, change)) return change;
  if (!changeTable(core, kHighSlot, lens, observer, verification, change.high, change)) return change;
  if (!askChecked(core, kUseSlot, useSlotPayload(core.rangeMode))) {
    fail(change, "The core holds the lens' tables, but did not confirm that it uses them.");
  } else if (checkedWrite(core, DO_FFC, nullptr, {}) != CAM_OK) {
    fail(change, "The core uses the lens' tables, but did not confirm the flat-field correction that is due.");
  } else {
    sleep(1);  // for the correction
  }
  return change;
}

}  // namespace keocam
