#include "apps/keocam/lens/CameraCalibration.h"

#include <exception>
#include <filesystem>
#include <system_error>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

[[noreturn]] void refuse(const CameraCalibration& calibration, const std::exception& error) {
  throw CommandFailure(ExitStatus::Failure, inQuotes(calibration.text_path) + " cannot be read to its end: " +
                                                printable(error.what()) + ". \"keocam calibration check " +
                                                printable(calibration.text_path) + "\" tells what is wrong.");
}

}  // namespace

void requireFolder(const std::string& folder) {
  if (!folder.empty()) return;
  throw CommandFailure(ExitStatus::Usage,
                       "Lenses stand in the camera's calibration: name the folder of calibrations with "
                       "--calibrations, or in the variable KEOCAM_DATA_DIR.");
}

CameraCalibration calibrationOf(const std::string& serial_number, const std::string& folder) {
  std::error_code none;
  if (!std::filesystem::is_directory(folder, none)) {
    throw CommandFailure(ExitStatus::Failure, "The folder of calibrations " + inQuotes(folder) + " does not exist.");
  }
  CameraCalibration calibration;
  calibration.text_path = folder + '/' + serial_number + "/calibration.txt";
  calibration.entry = CalibrationSource(folder).lookUp(serial_number);
  if (calibration.entry.text.empty()) {
    throw CommandFailure(ExitStatus::Failure,
                         "There is no calibration for " + inQuotes(serial_number) + " in " + inQuotes(folder) +
                             ". It takes a folder of that name with calibration.txt and manifest.txt.");
  }
  try {
    const int grammar = calibrationGrammar(calibration.entry.version);
    const CalibrationLayout layout = readCalibrationLayout(calibration.entry.text, grammar, serial_number, {});
    if (layout.failure) std::rethrow_exception(layout.failure);
    calibration.lenses = summariesOf(layout, Checksums::None);
  } catch (const std::logic_error& error) {
    refuse(calibration, error);
  }
  if (calibration.lenses.empty()) {
    throw CommandFailure(ExitStatus::Failure, inQuotes(calibration.text_path) +
                                                  " has no lens. \"keocam calibration check " +
                                                  printable(calibration.text_path) + "\" tells more.");
  }
  return calibration;
}

}  // namespace keocam::cli
