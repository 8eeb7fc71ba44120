#include "apps/keocam/temperature/MeasureCommand.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/StopSignal.h"
#include "apps/keocam/frames/FrameStatistics.h"
#include "apps/keocam/temperature/LiveText.h"
#include "apps/keocam/temperature/MeasureReport.h"
#include "apps/keocam/temperature/Thermometer.h"
#include "apps/keocam/temperature/WatchReport.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Table.h"
#include "apps/keocam/terminal/Terminal.h"

namespace keocam::cli {
namespace {

using SteadyClock = std::chrono::steady_clock;

// Measures frame after frame; the regions are laid out anew where the frames' size changes.
class Measurer {
 public:
  Measurer(Thermometer& thermometer, const std::vector<NamedRegion>& regions, const MeasureDetails& details,
           const DisplayUnit& unit, const Console& console)
      : thermometer_(thermometer), regions_(regions), details_(details), unit_(unit), console_(console) {}

  Measurement measure(const ReceivedFrame& received) {
    const TemperatureFrame frame = thermometer_.measured(received);
    if (frame.raw.width != width_ || frame.raw.height != height_) place(frame);
    const SensorModel& model = thermometer_.model().sensor();
    if (!limits_) limits_ = rawLimitsOf(model);
    Measurement measurement = measureRegions(frame, placed_, *limits_, details_);
    const std::string warnings = measureWarnings(measurement, model, unit_);
    // Told once, not with every frame.
    if (!warned_ && !warnings.empty()) console_.warning(warnings);
    warned_ = warned_ || !warnings.empty();
    return measurement;
  }

 private:
  void place(const TemperatureFrame& frame) {
    width_ = frame.raw.width;
    height_ = frame.raw.height;
    placed_ = placed(regions_, static_cast<int>(width_), static_cast<int>(height_));
    for (const PlacedRegion& region : placed_) {
      if (!region.cut_off) continue;
      console_.warning(inQuotes(region.named.name) + " lies partly outside the picture of " + std::to_string(width_) +
                       " x " + std::to_string(height_) + " pixels; measured is what lies within.");
    }
  }

  Thermometer& thermometer_;
  const std::vector<NamedRegion>& regions_;
  const MeasureDetails& details_;
  const DisplayUnit& unit_;
  const Console& console_;
  uint32_t width_ = 0;
  uint32_t height_ = 0;
  std::vector<PlacedRegion> placed_;
  std::optional<RawLimits> limits_;
  bool warned_ = false;
};

class Reporter {
 public:
  Reporter(const MeasureOptions& options, const MeasureDetails& details, const DisplayUnit& unit, DataOutput& output)
      : options_(options),
        details_(details),
        unit_(unit),
        output_(output),
        live_(options.watch && terminalOn(STDOUT_FILENO).interactive) {
    if (options.csv) output.write(csvHeading(details));
  }

  void report(const Conditions& conditions, const Measurement& measurement) {
    if (options_.json) return output_.write(measureJson(conditions, measurement, details_, unit_));
    if (options_.csv) return output_.write(csvLines(conditions, measurement, unit_));
    if (!options_.watch) {
      return output_.write(measureTable(measurement, details_, unit_, widthOfOutput()) +
                           histogramTables(measurement, unit_));
    }
    if (!live_) {
      return output_.write(watchLine(conditions, measurement, unit_) + measureLines(measurement, details_, unit_));
    }
    const std::size_t width = widthOfOutput() - 1;
    output_.write(text_.instead(watchTable(conditions, measurement, unit_, width) + '\n' +
                                measureTable(measurement, details_, unit_, width)));
  }

 private:
  const MeasureOptions& options_;
  const MeasureDetails& details_;
  const DisplayUnit& unit_;
  DataOutput& output_;
  const bool live_;
  LiveText text_;
};

int64_t nanosecondsNow() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(SteadyClock::now().time_since_epoch()).count();
}

void watch(Thermometer& thermometer, Measurer& measurer, Reporter& reporter, const MeasureOptions& options,
           const DataOutput& output, const StopSignal& stop) {
  const auto interval =
      std::chrono::duration_cast<SteadyClock::duration>(std::chrono::duration<double>(options.interval_s));
  uint64_t left = options.count.value_or(UINT64_MAX);
  auto due = SteadyClock::now();
  FrameStatistics rate;
  // Every frame is fetched, so that the one measured is never an old one that waited in a buffer.
  while (left > 0 && output.hasReader()) {
    const std::optional<ReceivedFrame> frame = thermometer.next(stop);
    if (!frame) return;
    rate.addFrame(frame->details.block_id, nanosecondsNow(), std::nullopt);
    if (SteadyClock::now() < due) continue;
    Measurement measurement = measurer.measure(*frame);
    measurement.frames_per_second = rate.endPeriod().frames_per_second;
    reporter.report(thermometer.conditions(), measurement);
    --left;
    due = std::max(due + interval, SteadyClock::now());
  }
}

void checkCombination(const MeasureOptions& options) {
  const bool text_while_watching = options.watch && !options.json;
  if (options.histogram_bins && (options.csv || text_while_watching)) {
    throw CommandFailure(ExitStatus::Usage,
                         "--histogram has no place in CSV or in the text of --watch; use it with --json, or without "
                         "these.");
  }
}

}  // namespace

ExitStatus runMeasure(const MeasureOptions& options, const Console& console, DataOutput& output) {
  checkCombination(options);
  const DisplayUnit& unit = unitIn(options.thermometer);
  requireFolderForLens(options.thermometer);
  const ObjectOverrides overrides = overridesIn(options.thermometer.object, unit);
  const std::vector<NamedRegion> regions = regionsIn(options.regions);
  const MeasureDetails details{options.percents, options.histogram_bins};

  const StopSignal stop;
  Thermometer thermometer(options.thermometer, overrides, console);
  const bool data = options.json || options.csv;
  if (!data) console.note(conditionSummary(thermometer.conditions(), unit) + ".");
  Measurer measurer(thermometer, regions, details, unit, console);
  Reporter reporter(options, details, unit, output);
  if (options.watch) {
    watch(thermometer, measurer, reporter, options, output, stop);
    return ExitStatus::Ok;
  }
  const std::optional<ReceivedFrame> frame = thermometer.next(stop);
  if (!frame) throw CommandFailure(ExitStatus::Failure, "Stopped before a frame came; nothing was measured.");
  reporter.report(thermometer.conditions(), measurer.measure(*frame));
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
