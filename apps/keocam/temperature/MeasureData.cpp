// Measured regions for other programs: JSON and CSV.
#include <nlohmann/json.hpp>

#include "apps/keocam/Json.h"
#include "apps/keocam/temperature/MeasureReport.h"
#include "apps/keocam/temperature/NumberText.h"
#include "apps/keocam/temperature/RangeNames.h"
#include "apps/keocam/temperature/TimeText.h"

namespace keocam::cli {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kDataDecimals = 3;

Json numberJson(double value) { return std::isfinite(value) ? Json(toThousandths(value)) : Json(nullptr); }

Json placeJson(const Pixel& place) { return place.x < 0 ? Json(nullptr) : Json{place.x, place.y}; }

Json histogramJson(const Histogram& histogram, const DisplayUnit& unit) {
  return {{"from", numberJson(fromCelsius(unit, histogram.bins.lower))},
          {"to", numberJson(fromCelsius(unit, histogram.bins.upper))},
          {"counts", histogram.counts}};
}

Json regionJson(const RegionResult& region, const MeasureDetails& details, const DisplayUnit& unit) {
  const Statistics& statistics = region.statistics;
  Json object = {{"name", region.named.name},
                 {"region", textOf(region.named.region)},
                 {"pixels", statistics.count},
                 {"min", numberJson(fromCelsius(unit, statistics.minimum))},
                 {"mean", numberJson(fromCelsius(unit, statistics.mean))},
                 {"max", numberJson(fromCelsius(unit, statistics.maximum))},
                 {"sd", numberJson(fromKelvins(unit, statistics.standard_deviation))},
                 {"min_at", placeJson(statistics.minimum_at)},
                 {"max_at", placeJson(statistics.maximum_at)},
                 {"nan", statistics.nan_count + statistics.infinite_count},
                 {"below_limit", region.limited.low},
                 {"above_limit", region.limited.high}};
  for (std::size_t i = 0; i < region.percentiles.size(); ++i) {
    object["percentiles"][shortText(details.percents[i], kDataDecimals)] =
        numberJson(fromCelsius(unit, region.percentiles[i]));
  }
  if (details.histogram_bins) {
    object["histogram"] = region.histogram ? histogramJson(*region.histogram, unit) : Json(nullptr);
  }
  return object;
}

std::string csvNumber(double value) { return std::isfinite(value) ? fixedText(value, kDataDecimals) : ""; }

std::string csvPlace(const Pixel& place) {
  return place.x < 0 ? "," : std::to_string(place.x) + ',' + std::to_string(place.y);
}

std::string csvConditions(const Conditions& conditions, const Measurement& measurement, const DisplayUnit& unit) {
  const std::optional<double>& rate = measurement.frames_per_second;
  std::string lens;
  for (const char c : conditions.lens) lens += c == '"' ? "\"\"" : std::string(1, c);
  return (rate ? csvNumber(*rate) : "") + ',' + csvNumber(fromCelsius(unit, conditions.core_temperature_celsius)) +
         ",\"" + lens + "\"," + rangeName(conditions.range);
}

}  // namespace

std::string measureJson(const Conditions& conditions, const Measurement& measurement, const MeasureDetails& details,
                        const DisplayUnit& unit) {
  Json object = {{"time", isoTime(measurement.time_ns)}, {"unit", unit.letter}};
  object.update(conditionsJson(conditions, unit));
  const std::optional<double>& rate = measurement.frames_per_second;
  object["frames_per_second"] = rate ? numberJson(*rate) : Json(nullptr);
  object["regions"] = Json::array();
  for (const RegionResult& region : measurement.regions) object["regions"].push_back(regionJson(region, details, unit));
  return jsonLine(object);
}

std::string csvHeading(const MeasureDetails& details) {
  std::string text =
      "time,region,unit,pixels,min,mean,max,sd,min_x,min_y,max_x,max_y,nan,below_limit,above_limit,"
      "frames_per_second,core_temperature,lens,range";
  for (const double percent : details.percents) text += ",p" + shortText(percent, kDataDecimals);
  return text + '\n';
}

std::string csvLines(const Conditions& conditions, const Measurement& measurement, const DisplayUnit& unit) {
  const std::string conditions_text = csvConditions(conditions, measurement, unit);
  std::string text;
  for (const RegionResult& region : measurement.regions) {
    const Statistics& statistics = region.statistics;
    // In quotes: a region that is called by its text has commas in its name.
    text += isoTime(measurement.time_ns) + ",\"" + region.named.name + "\"," + unit.letter + ',' +
            std::to_string(statistics.count) + ',' + csvNumber(fromCelsius(unit, statistics.minimum)) + ',' +
            csvNumber(fromCelsius(unit, statistics.mean)) + ',' + csvNumber(fromCelsius(unit, statistics.maximum)) +
            ',' + csvNumber(fromKelvins(unit, statistics.standard_deviation)) + ',' + csvPlace(statistics.minimum_at) +
            ',' + csvPlace(statistics.maximum_at) + ',' +
            std::to_string(statistics.nan_count + statistics.infinite_count) + ',' +
            std::to_string(region.limited.low) + ',' + std::to_string(region.limited.high) + ',' + conditions_text;
    for (const double celsius : region.percentiles) text += ',' + csvNumber(fromCelsius(unit, celsius));
    text += '\n';
  }
  return text;
}

}  // namespace keocam::cli
