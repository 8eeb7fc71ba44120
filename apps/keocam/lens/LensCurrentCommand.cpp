#include "apps/keocam/lens/LensCurrentCommand.h"

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/core/CoreSession.h"
#include "apps/keocam/lens/HeldTables.h"
#include "apps/keocam/lens/LensReport.h"
#include "calibration/Calibration.h"

namespace keocam::cli {
ExitStatus runLensCurrent(const LensCurrentOptions& options, const Console& console, DataOutput& output) {
  requireFolder(options.calibrations);
  CoreSession session(options.serial_number, console);
  const CameraCalibration calibration = calibrationOf(session.camera().serial_number, options.calibrations);
  session.connect();
  session.core().setCalibrationData(calibration.entry.text, calibration.entry.version, calibration.entry.serial_number);

  const HeldTables held = readHeldTables(session);
  const HeldLens found = heldLens(held, calibrationVect);
  if (options.json) {
    output.write(heldLensJson(session.camera().serial_number, found, calibration.lenses));
  } else if (found.lens) {
    output.write(shownName(calibration.lenses[*found.lens].name) + '\n');
  }
  if (found.lens) return ExitStatus::Ok;
  throw CommandFailure(ExitStatus::Failure, noHeldLensText(held, found, calibration.lenses));
}

}  // namespace keocam::cli
