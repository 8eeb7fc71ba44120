#include "apps/keocam/lens/LensSetCommand.h"

#include <unistd.h>

#include <chrono>
#include <iostream>

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/StopSignal.h"
#include "apps/keocam/calibration/CalibrationCheck.h"
#include "apps/keocam/core/CoreSession.h"
#include "apps/keocam/lens/CameraCalibration.h"
#include "apps/keocam/lens/LensChangeText.h"
#include "apps/keocam/lens/LensName.h"
#include "apps/keocam/lens/TransferReporter.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

using SteadyClock = std::chrono::steady_clock;

void warnOfFaults(const CameraCalibration& calibration, const Console& console) {
  const CalibrationEntry& entry = calibration.entry;
  if (!checkCalibration({entry.text, entry.version, entry.serial_number}).anyWrong()) return;
  console.warning("Something is wrong with the calibration; \"keocam calibration check " +
                  printable(calibration.text_path) + "\" tells what.");
}

LensChange change(CameraSerialSettings& core, const LensSummary& lens, Verification verification,
                  const StopSignal& stop, const Console& console) {
  const auto table_bytes = static_cast<uint32_t>(lens.low.size_bytes);
  TransferReporter reporter(
      std::cerr, [] { return terminalOn(STDERR_FILENO); }, TransferMeter(table_bytes, verification));
  const auto begin = SteadyClock::now();
  const auto observer = [&](const TransferProgress& progress) {
    const auto since = std::chrono::duration_cast<std::chrono::milliseconds>(SteadyClock::now() - begin);
    if (console.verbosity() != Verbosity::Quiet) reporter.report(progress, since.count());
    return !stop.requested();
  };
  return changeLens(core, lens.name, observer, verification);
}

// The camera gone, the core silent, or a refusal.
CommandFailure failureOf(CoreSession& session, const std::string& text) {
  ExitStatus status = ExitStatus::Failure;
  std::string more;
  try {
    if (exitStatusOf(session.ask()) == ExitStatus::LinkLost) {
      session.requireLink();
      status = ExitStatus::LinkLost;
      more = "\nThe core does not answer any more; switch the camera off and on first.";
    }
  } catch (const CommandFailure& lost) {
    status = lost.status();
    more = std::string("\n") + lost.what();
  }
  return {status, text + more};
}

}  // namespace

ExitStatus runLensSet(const LensSetOptions& options, const Console& console) {
  requireFolder(options.calibrations);
  CoreSession session(options.serial_number, console);
  const CameraCalibration calibration = calibrationOf(session.camera().serial_number, options.calibrations);
  const LensSummary& lens = calibration.lenses[lensNamed(options.name, calibration.lenses)];
  const std::string name = shownName(lens.name);
  warnOfFaults(calibration, console);

  const StopSignal stop;
  session.connect();
  const CalibrationEntry& entry = calibration.entry;
  session.core().setCalibrationData(entry.text, entry.version, entry.serial_number);
  const Verification verification = options.no_verify ? Verification::None : Verification::ReadBack;
  if (lens.low.size_bytes > 0) {
    console.note(beginText(nameOf(session.camera()), name, static_cast<uint32_t>(lens.low.size_bytes), verification));
  }
  const LensChange result = change(session.core(), lens, verification, stop, console);
  if (result.end == LensChangeEnd::Complete) {
    console.note(completeText(name, result));
    return ExitStatus::Ok;
  }
  const std::string text = incompleteText(name, result);
  if (result.end == LensChangeEnd::Cancelled) throw CommandFailure(ExitStatus::Failure, text);
  throw failureOf(session, text);
}

}  // namespace keocam::cli
