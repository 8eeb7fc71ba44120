#include "apps/keocam/temperature/WatchReport.h"

#include "apps/keocam/temperature/NumberText.h"
#include "apps/keocam/temperature/RangeNames.h"
#include "apps/keocam/temperature/TimeText.h"
#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {
namespace {

constexpr int kWatchDecimals = 1;
constexpr const char* kNothingKnown = "-";

std::string watchRate(const Measurement& measurement) {
  return measurement.frames_per_second ? fixedText(*measurement.frames_per_second, kWatchDecimals) : kNothingKnown;
}

std::string watchCore(const Conditions& conditions, const DisplayUnit& unit) {
  return fixedText(fromCelsius(unit, conditions.core_temperature_celsius), kWatchDecimals);
}

std::string watchLens(const Conditions& conditions) {
  return conditions.lens.empty() ? kNothingKnown : conditions.lens;
}

}  // namespace

std::string watchTable(const Conditions& conditions, const Measurement& measurement, const DisplayUnit& unit,
                       std::size_t width) {
  return formatTable(
      {"FRAMES/S", std::string("CORE ") + unit.symbol, "LENS", "RANGE"},
      {{watchRate(measurement), watchCore(conditions, unit), watchLens(conditions), rangeName(conditions.range)}},
      width);
}

std::string watchLine(const Conditions& conditions, const Measurement& measurement, const DisplayUnit& unit) {
  return isoTime(measurement.time_ns) + ' ' + watchRate(measurement) + " frames/s, core " +
         watchCore(conditions, unit) + ' ' + unit.symbol + ", lens " + watchLens(conditions) + ", range " +
         rangeName(conditions.range) + '\n';
}

}  // namespace keocam::cli
