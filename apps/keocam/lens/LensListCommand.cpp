#include "apps/keocam/lens/LensListCommand.h"

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CameraSearch.h"
#include "apps/keocam/lens/LensReport.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {
namespace {

std::string onlyCamera() {
  const CameraSearch search;
  return search.details()[chooseCamera(search.details(), std::nullopt, searchedInterfaces())].serial_number;
}

}  // namespace

ExitStatus runLensList(const LensListOptions& options, const Console& console, DataOutput& output) {
  requireFolder(options.calibrations);
  const std::string serial_number = options.serial_number ? *options.serial_number : onlyCamera();
  const CameraCalibration calibration = calibrationOf(serial_number, options.calibrations);
  console.detail("Calibration version " + printable(calibration.entry.version) + ".");
  output.write(options.json ? lensJson(calibration) : lensTable(calibration.lenses, widthOfOutput()));
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
