#include "apps/keocam/temperature/ThermometerOptions.h"

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/lens/CameraCalibration.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {

const DisplayUnit& unitIn(const ThermometerOptions& options) {
  const DisplayUnit* const unit = findUnit(options.unit);
  if (unit != nullptr) return *unit;
  throw CommandFailure(ExitStatus::Usage, "--unit takes C, K or F, not " + inQuotes(options.unit) + ".");
}

void requireFolderForLens(const ThermometerOptions& options) {
  if (options.lens) requireFolder(options.calibrations);
}

}  // namespace keocam::cli
