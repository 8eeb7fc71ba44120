#include "apps/keocam/temperature/WatchReport.h"

#include "apps/keocam/temperature/NumberText.h"
#include "apps/keocam/temperature/RangeNames.h"
#include "apps/keocam/temperature/TimeText.h"
#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {
namespace {

constexpr int kDecimals = 1;
constexpr const char* kUnknown = "-";

std::string rateText(const Measurement& measurement) {
  return measurement.frames_per_second ? fixedText(*measurement.frames_per_second, kDecimals) : kUnknown;
}

std::string coreText(const Conditions& conditions, const DisplayUnit& unit) {
  return fixedText(fromCelsius(unit, conditions.core_temperature_celsius), kDecimals);
}

std::string lensText(const Conditions& conditions) { return conditions.lens.empty() ? kUnknown : conditions.lens; }

}  // namespace

std::string watchTable(const Conditions& conditions, const Measurement& measurement, const DisplayUnit& unit,
                       std::size_t width) {
  return formatTable(
      {"FRAMES/S", std::string("CORE ") + unit.symbol, "LENS", "RANGE"},
      {{rateText(measurement), coreText(conditions, unit), lensText(conditions), rangeName(conditions.range)}}, width);
}

std::string watchLine(const Conditions& conditions, const Measurement& measurement, const DisplayUnit& unit) {
  return isoTime(measurement.time_ns) + ' ' + rateText(measurement) + " frames/s, core " + coreText(conditions, unit) +
         ' ' + unit.symbol + ", lens " + lensText(conditions) + ", range " + rangeName(conditions.range) + '\n';
}

}  // namespace keocam::cli
