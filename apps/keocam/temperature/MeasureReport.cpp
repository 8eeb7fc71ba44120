#include "apps/keocam/temperature/MeasureReport.h"

#include <algorithm>

#include "apps/keocam/temperature/NumberText.h"
#include "apps/keocam/temperature/TimeText.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {
namespace {

constexpr int kTableDecimals = 2;
constexpr int kPercentDecimals = 3;

std::string temperatureText(const DisplayUnit& unit, double celsius) {
  return fixedText(fromCelsius(unit, celsius), kTableDecimals);
}

std::string differenceText(const DisplayUnit& unit, double kelvins) {
  return fixedText(fromKelvins(unit, kelvins), kTableDecimals);
}

std::string placeText(const Pixel& place) {
  return place.x < 0 ? "-" : std::to_string(place.x) + "," + std::to_string(place.y);
}

std::string percentName(double percent) { return shortText(percent, kPercentDecimals); }

int64_t withoutTemperature(const Statistics& statistics) { return statistics.nan_count + statistics.infinite_count; }

bool anyWithoutTemperature(const Measurement& measurement) {
  for (const RegionResult& region : measurement.regions) {
    if (withoutTemperature(region.statistics) > 0) return true;
  }
  return false;
}

}  // namespace

std::string measureTable(const Measurement& measurement, const MeasureDetails& details, const DisplayUnit& unit,
                         std::size_t width) {
  const std::string in_unit = std::string(" ") + unit.symbol;
  TableRow header{"REGION", "MIN" + in_unit, "MEAN" + in_unit, "MAX" + in_unit, "SD", "MAX AT"};
  for (const double percent : details.percents) header.push_back("P" + percentName(percent));
  const bool nan_column = anyWithoutTemperature(measurement);
  if (nan_column) header.emplace_back("NAN");

  std::vector<TableRow> rows;
  for (const RegionResult& region : measurement.regions) {
    const Statistics& statistics = region.statistics;
    TableRow row{printable(region.named.name),
                 temperatureText(unit, statistics.minimum),
                 temperatureText(unit, statistics.mean),
                 temperatureText(unit, statistics.maximum),
                 differenceText(unit, statistics.standard_deviation),
                 placeText(statistics.maximum_at)};
    for (const double celsius : region.percentiles) row.push_back(temperatureText(unit, celsius));
    if (nan_column) row.push_back(std::to_string(withoutTemperature(statistics)));
    rows.push_back(std::move(row));
  }
  return formatTable(header, rows, width);
}

std::string histogramTables(const Measurement& measurement, const DisplayUnit& unit) {
  constexpr double kBarColumns = 40.0;
  std::string text;
  for (const RegionResult& region : measurement.regions) {
    if (!region.histogram) continue;
    const Histogram& histogram = *region.histogram;
    int64_t most = 1;
    for (const int64_t count : histogram.counts) most = std::max(most, count);
    std::vector<TableRow> rows;
    for (int bin = 0; bin < histogram.bins.count; ++bin) {
      const int64_t count = histogram.counts[static_cast<std::size_t>(bin)];
      const auto columns =
          static_cast<std::size_t>(kBarColumns * static_cast<double>(count) / static_cast<double>(most));
      rows.push_back({temperatureText(unit, histogram.bins.edge(bin)),
                      temperatureText(unit, histogram.bins.edge(bin + 1)), std::to_string(count),
                      std::string(columns, '#')});
    }
    text += '\n' + printable(region.named.name) + '\n' +
            formatTable({std::string("FROM ") + unit.symbol, std::string("TO ") + unit.symbol, "PIXELS", ""}, rows,
                        kUnlimitedWidth);
  }
  return text;
}

std::string measureLines(const Measurement& measurement, const MeasureDetails& details, const DisplayUnit& unit) {
  std::string text;
  for (const RegionResult& region : measurement.regions) {
    const Statistics& statistics = region.statistics;
    text += isoTime(measurement.time_ns) + ' ' + printable(region.named.name) + ": min " +
            temperatureText(unit, statistics.minimum) + ", mean " + temperatureText(unit, statistics.mean) + ", max " +
            temperatureText(unit, statistics.maximum) + ' ' + unit.symbol + " at " + placeText(statistics.maximum_at) +
            ", sd " + differenceText(unit, statistics.standard_deviation);
    for (std::size_t i = 0; i < region.percentiles.size(); ++i) {
      text += ", p" + percentName(details.percents[i]) + ' ' + temperatureText(unit, region.percentiles[i]);
    }
    if (withoutTemperature(statistics) > 0) text += ", nan " + std::to_string(withoutTemperature(statistics));
    text += '\n';
  }
  return text;
}

std::string measureWarnings(const Measurement& measurement, const SensorModel& model, const DisplayUnit& unit) {
  std::string text;
  const auto add = [&](const RegionResult& region, int64_t pixels, const std::string& what) {
    if (pixels == 0) return;
    text += (text.empty() ? "" : "\n") + inQuotes(region.named.name) + ": " + std::to_string(pixels) +
            (pixels == 1 ? " pixel " : " pixels ") + what;
  };
  const auto limitText = [&](double celsius) {
    return shortText(fromCelsius(unit, celsius), kTableDecimals) + ' ' + unit.symbol;
  };
  for (const RegionResult& region : measurement.regions) {
    add(region, withoutTemperature(region.statistics), "without a temperature, left out of the numbers.");
    add(region, region.limited.low, "colder than the model's limit of " + limitText(model.limits.lowest) + ".");
    add(region, region.limited.high, "hotter than the model's limit of " + limitText(model.limits.highest) + ".");
  }
  return text;
}

}  // namespace keocam::cli
