#include "apps/keocam/calibration/CheckCommand.h"

#include <algorithm>

#include "apps/keocam/calibration/CalibrationCheck.h"
#include "apps/keocam/calibration/CalibrationReport.h"

namespace keocam::cli {

ExitStatus runCalibrationCheck(const CalibrationCheckOptions& options, const Console& console, DataOutput& output) {
  const CalibrationFile file = readCalibrationFile(options.path);
  const CalibrationReading reading = readingOf(file, options.given);
  const CalibrationFindings in_text = checkCalibration({file.text, reading.version, reading.serial_number});

  std::vector<CalibrationFinding> findings = reading.findings.all();
  findings.insert(findings.end(), in_text.all().begin(), in_text.all().end());
  output.write(options.json ? findingsJson(options.path, findings) : findingsText(options.path, findings));

  const auto has_place = [](const CalibrationFinding& finding) { return finding.offset.has_value(); };
  if (std::any_of(findings.begin(), findings.end(), has_place)) {
    console.note("Bytes are counted from the file's beginning, the first is 0.");
  }
  return reading.findings.anyWrong() || in_text.anyWrong() ? ExitStatus::Failure : ExitStatus::Ok;
}

}  // namespace keocam::cli
