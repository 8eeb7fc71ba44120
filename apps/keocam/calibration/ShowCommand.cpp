#include "apps/keocam/calibration/ShowCommand.h"

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/calibration/CalibrationReport.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {
namespace {

// Reading a text needs a serial number only for the camera's speed, which is not shown.
constexpr const char* kAnySerialNumber = "KEOD0000";

CalibrationLayout layoutOf(const CalibrationFile& file, const CalibrationReading& reading) {
  int grammar = -1;
  try {
    grammar = calibrationGrammar(reading.version);
  } catch (const std::logic_error&) {
    grammar = -1;
  }
  if (grammar < 0) {
    throw CommandFailure(ExitStatus::Failure, "The version " + inQuotes(reading.version) +
                                                  " is no number from 0 on; give the right one with --version.");
  }
  return readCalibrationLayout(file.text, grammar, kAnySerialNumber, {});
}

}  // namespace

ExitStatus runCalibrationShow(const CalibrationShowOptions& options, const Console& console, DataOutput& output) {
  const CalibrationFile file = readCalibrationFile(options.path);
  CalibrationOverview overview;
  overview.path = options.path;
  overview.size_bytes = file.text.size();
  overview.crc32 = crc32Of(file.text.data(), file.text.size());
  overview.reading = readingOf(file, options.given);
  const CalibrationLayout layout = layoutOf(file, overview.reading);
  overview.lenses = summariesOf(layout, Checksums::Crc32);
  output.write(options.json ? overviewJson(overview) : overviewText(overview, widthOfOutput()));
  for (const CalibrationFinding& finding : overview.reading.findings.all()) console.warning(finding.text);
  if (!layout.failure) return ExitStatus::Ok;
  throw CommandFailure(ExitStatus::Failure, "The text could not be read to its end; \"keocam calibration check " +
                                                printable(options.path) + "\" tells why.");
}

}  // namespace keocam::cli
