#include "apps/keocam/info/CameraInfoCommand.h"

#include <algorithm>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/core/CoreInfoReading.h"
#include "apps/keocam/core/CoreSession.h"
#include "apps/keocam/core/RadiometrySettings.h"
#include "apps/keocam/info/CameraReadings.h"
#include "apps/keocam/info/CoreModel.h"
#include "apps/keocam/info/InfoReport.h"
#include "apps/keocam/info/InfoSections.h"
#include "apps/keocam/lens/HeldTables.h"
#include "apps/keocam/lens/LensReport.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Table.h"
#include "calibration/Calibration.h"
#include "serial/PartNumber.h"

namespace keocam::cli {
namespace {

std::string onOneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

// Reads part by part. What stands against a part is told with it; the first such failure is kept to end the program.
class Reader {
 public:
  Reader(const CameraInfoOptions& options, const Console& console)
      : options_(options), session_(options.serial_number, console) {}

  CameraReadings read() {
    readings_.camera = session_.camera();
    readings_.use = useOf(session_.info());
    const bool connected = attempted([&] { session_.connect(); });
    readings_.no_core = whyNotConnected();
    readLink();
    if (connected && !attempted([&] { readCore(); })) readings_.no_core = "the connection to the camera was lost";
    readLenses();
    return readings_;
  }

  const std::optional<CommandFailure>& failure() const { return failure_; }

 private:
  template <typename Part>
  bool attempted(const Part& part) {
    try {
      part();
      return true;
    } catch (const CommandFailure& failure) {
      if (!failure_) failure_ = failure;
      return false;
    }
  }

  std::string whyNotConnected() {
    if (!failure_) return {};
    if (session_.controlledDevice() != nullptr) return "the core does not answer, or is not ready";
    return failure_->status() == ExitStatus::InUse ? "another program or host controls the camera"
                                                   : "the camera cannot be connected";
  }

  void readLink() {
    PvDevice* const device = session_.controlledDevice();
    if (device != nullptr) {
      readings_.link = linkOf(*device);
    } else {
      readings_.no_link = whyNotConnected();
    }
  }

  void readCore() {
    CoreInfo& core = readings_.core.emplace();
    readCoreInfo(session_, core);
    std::vector<FailedItem> failures = failuresAmong(core);
    for (const SettingRow* const setting : listedSettings()) {
      if (!isRadiometric(*setting)) continue;
      const CoreValue<int> value = session_.attempt([&] { return readListed(session_.core(), *setting); });
      readings_.radiometry.push_back({setting, value});
      if (!value.ok() && !isLackOfRadiometry(*setting, value.status)) failures.push_back({setting->name, value.status});
    }
    if (!failures.empty() && !failure_) failure_ = notRead(failures);
  }

  void readLenses() {
    if (options_.calibrations.empty()) {
      readings_.no_lens = "no folder of calibrations is named, see --calibrations";
      return;
    }
    try {
      const CameraCalibration calibration = calibrationOf(session_.camera().serial_number, options_.calibrations);
      readings_.lens = lensesOf(calibration);
    } catch (const CommandFailure& failure) {
      if (!failure_) failure_ = failure;
      readings_.no_lens = onOneLine(failure.what());
      readings_.lens_not_read = true;
    }
  }

  LensReadings lensesOf(const CameraCalibration& calibration) {
    LensReadings lens;
    lens.lenses = calibration.lenses;
    if (!readings_.no_core.empty()) {
      lens.not_held = readings_.no_core;
      lens.held_not_read = true;
      return lens;
    }
    const CalibrationEntry& entry = calibration.entry;
    session_.core().setCalibrationData(entry.text, entry.version, entry.serial_number);
    if (CamSpeed.set) lens.speed = CamSpeed.speed;
    try {
      const HeldTables held = readHeldTables(session_);
      const HeldLens found = heldLens(held, calibrationVect);
      lens.held = found.lens;
      if (!found.lens) lens.not_held = onOneLine(noHeldLensText(held, found, calibration.lenses));
    } catch (const CommandFailure& failure) {
      if (!failure_) failure_ = failure;
      lens.not_held = onOneLine(failure.what());
      lens.held_not_read = true;
    }
    return lens;
  }

  const CameraInfoOptions& options_;
  CoreSession session_;
  CameraReadings readings_;
  std::optional<CommandFailure> failure_;
};

void warnOfShortPartNumber(const CameraReadings& readings, const Console& console) {
  if (!readings.core || !readings.core->part_number.ok()) return;
  const std::string part_number = partNumberIn(readings.core->part_number.value);
  if (!isTooShort(part_number)) return;
  console.warning("The core's part number " + inQuotes(part_number) +
                  " is too short to be known, and applications cannot start this core. Frames, measurements and "
                  "settings by keocam work all the same.");
}

}  // namespace

ExitStatus runCameraInfo(const CameraInfoOptions& options, const Console& console, DataOutput& output) {
  Reader reader(options, console);
  const CameraReadings readings = reader.read();
  const std::vector<InfoSection> sections = infoSections(readings);
  output.write(options.json ? infoJson(sections) : infoText(sections, widthOfOutput()));
  warnOfShortPartNumber(readings, console);
  if (reader.failure()) throw CommandFailure(*reader.failure());
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
