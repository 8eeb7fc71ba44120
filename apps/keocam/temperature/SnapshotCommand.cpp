#include "apps/keocam/temperature/SnapshotCommand.h"

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/PendingFile.h"
#include "apps/keocam/StopSignal.h"
#include "apps/keocam/temperature/Snapshot.h"
#include "apps/keocam/temperature/SnapshotColours.h"
#include "apps/keocam/temperature/Thermometer.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {

ExitStatus runSnapshot(const SnapshotOptions& options, const Console& console) {
  const SnapshotFormat& format = formatOf(options.path);
  const SnapshotColours colours = coloursFor(format, options.palette, options.span);
  const DisplayUnit& unit = unitIn(options.thermometer);
  requireFolderForLens(options.thermometer);
  const ObjectOverrides overrides = overridesIn(options.thermometer.object, unit);
  PendingFile file(options.path);

  const StopSignal stop;
  Thermometer thermometer(options.thermometer, overrides, console);
  const std::optional<ReceivedFrame> received = thermometer.next(stop);
  if (!received) throw CommandFailure(ExitStatus::Failure, "Stopped before a frame came; no file was written.");
  const TemperatureFrame frame = thermometer.measured(*received);
  file.commit(format.encode({frame, thermometer.conditions(), unit, colours}));
  console.note(conditionSummary(thermometer.conditions(), unit) + ".");
  console.note("Written: " + inQuotes(options.path) + ".");
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
