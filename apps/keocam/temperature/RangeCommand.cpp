#include "apps/keocam/temperature/RangeCommand.h"

#include <nlohmann/json.hpp>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/Json.h"
#include "apps/keocam/core/CoreSession.h"
#include "apps/keocam/core/StatusText.h"
#include "apps/keocam/temperature/LensChoice.h"
#include "apps/keocam/temperature/RangeNames.h"
#include "apps/keocam/temperature/RangeText.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "radiometry/CoreRadiometry.h"

namespace keocam::cli {
namespace {

std::string rangeJson(const std::string& camera, bool low) {
  nlohmann::ordered_json ranges = nlohmann::ordered_json::array();
  for (const std::string& name : rangeNames()) {
    if ((name == rangeName(CameraSerialSettings::LowRange)) == low) ranges.push_back(name);
  }
  return jsonText({{"camera", camera}, {"gain", low ? "high" : "low"}, {"ranges", ranges}});
}

}  // namespace

ExitStatus runRangeShow(const RangeShowOptions& options, const Console& console, DataOutput& output) {
  const auto session = connectedCore(options.serial_number, console);
  const CoreValue<bool> low = session->attempt([&] { return readHighGain(session->core()); });
  if (!low.ok()) throw notRead({{"the core's gain", low.status}});
  output.write(options.json ? rangeJson(session->camera().serial_number, low.value) : rangesByGain(low.value) + '\n');
  return ExitStatus::Ok;
}

ExitStatus runRangeSet(const RangeSetOptions& options, const Console& console) {
  const std::optional<RangeModes> range = findRange(options.range);
  if (!range) {
    throw CommandFailure(ExitStatus::Usage,
                         "There is no range " + inQuotes(options.range) + ". There are: " + rangeNamesText() + ".");
  }
  // Of the calibration nothing matters to the others.
  const bool needs_lens = *range == CameraSerialSettings::HighRange;
  if (needs_lens) requireFolder(options.calibrations);
  CoreSession session(options.serial_number, console);
  std::optional<CameraCalibration> calibration;
  if (needs_lens) calibration = calibrationIn(options.calibrations, session.camera());
  session.connect();
  if (calibration) putLensInForce(*calibration, options.lens, session);

  const ResponseStatuses state = session.attempt([&] { return adoptCoreState(session.core(), lowGainRange(range)); });
  if (state != CAM_OK) throw notRead({{"the core's state", state}});
  console.note("Changing to the " + rangeName(*range) + " range, which takes some seconds.");
  RangeChangeResult result{};
  session.attempt([&] {
    result = changeRange(session.core(), *range);
    return result.status;
  });
  if (const auto failure = rangeFailure(*range, result)) throw CommandFailure(*failure);
  console.note(rangeDoneText(*range));
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
