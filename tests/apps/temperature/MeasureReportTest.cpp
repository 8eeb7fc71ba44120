// Measured regions as a person and a program get them.
#include "apps/keocam/temperature/MeasureReport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

#include "FailureText.h"
#include "MeasuredFrame.h"
#include "apps/keocam/temperature/WatchReport.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {
namespace {

using nlohmann::json;

Measurement measured(const std::vector<std::string>& regions, const MeasureDetails& details = {},
                     const RawLimits& limits = {}) {
  return measureRegions(smallFrame(), placed(regionsIn(regions), 4, 2), limits, details);
}

TEST(MeasureReport, Table_HasALinePerRegion) {
  EXPECT_EQ(measureTable(measured({"a=box:0,0,2,2", "spot:3,0"}), {}, kCelsius, 80),
            "REGION    MIN °C  MEAN °C  MAX °C  SD    MAX AT\n"
            "a         10.00   12.50    15.00   2.06  1,1\n"
            "spot:3,0  13.00   13.00    13.00   0.00  3,0\n");
}

TEST(MeasureReport, PixelsWithoutTemperature_GetAColumn) {
  EXPECT_EQ(measureTable(measured({"a=spot:3,1", "b=box:2,1,2,1"}), {}, kKelvin, 80),
            "REGION  MIN K   MEAN K  MAX K   SD    MAX AT  NAN\n"
            "a       -       -       -       -     -       1\n"
            "b       289.15  289.15  289.15  0.00  2,1     1\n");
}

TEST(MeasureReport, Fahrenheit_ScalesDeviationsWithoutTheirZero) {
  const MeasureDetails details{{50.0, 99.5}, {}};
  EXPECT_EQ(measureTable(measured({"a=box:0,0,2,2"}, details), details, kFahrenheit, 80),
            "REGION  MIN °F  MEAN °F  MAX °F  SD    MAX AT  P50    P99.5\n"
            "a       50.00   54.50    59.00   3.71  1,1     54.50  58.97\n");
}

TEST(MeasureReport, LongNames_AreCutToTheWidth) {
  const std::string name(200, 'n');
  const MeasureDetails details{{5.0, 50.0, 95.0}, {}};
  std::istringstream lines(measureTable(measured({name + "=spot:0,0"}, details), details, kCelsius, 80));
  for (std::string line; std::getline(lines, line);) EXPECT_LE(columnsOf(line), 80U) << line;
}

TEST(MeasureReport, Lines_StandForThemselves) {
  EXPECT_EQ(measureLines(measured({"a=box:2,0,2,2"}, {{50.0}, {}}), {{50.0}, {}}, kCelsius),
            "2026-11-21T09:15:36.123Z a: min 12.00, mean 13.67, max 16.00 °C at 2,1, sd 1.70, p50 13.00, nan 1\n");
}

TEST(MeasureReport, Json_IsOneLineWithTheConditions) {
  const MeasureDetails details{{25.0}, 2};
  const std::string text = measureJson(usualConditions(), measured({"a=box:0,0,4,2"}, details), details, kCelsius);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1);
  const json object = json::parse(text);
  EXPECT_EQ(object["time"], "2026-11-21T09:15:36.123Z");
  EXPECT_EQ(object["unit"], "C");
  EXPECT_EQ(object["camera"], "KEOD2001");
  EXPECT_EQ(object["lens"], "L25mm");
  EXPECT_EQ(object["range"], "low");
  EXPECT_EQ(object["emissivity"], 0.9);
  EXPECT_EQ(object["reflected"], 30.0);
  EXPECT_EQ(object["distance_m"], 2.5);
  const json expected = {{"name", "a"},
                         {"region", "box:0,0,4,2"},
                         {"pixels", 7},
                         {"min", 10.0},
                         {"mean", 13.0},
                         {"max", 16.0},
                         {"sd", 2.0},
                         {"min_at", {0, 0}},
                         {"max_at", {2, 1}},
                         {"nan", 1},
                         {"below_limit", 0},
                         {"above_limit", 0},
                         {"percentiles", {{"25", 11.5}}},
                         {"histogram", {{"from", 10.0}, {"to", 16.0}, {"counts", {3, 4}}}}};
  ASSERT_EQ(object["regions"].size(), 1U);
  EXPECT_EQ(object["regions"][0], expected);
}

TEST(MeasureReport, JsonOfNoTemperature_IsNull) {
  const MeasureDetails details{{50.0}, 3};
  const json region =
      json::parse(measureJson(usualConditions(), measured({"spot:3,1"}, details), details, kCelsius))["regions"][0];
  for (const char* const key : {"min", "mean", "max", "sd", "min_at", "max_at", "histogram"}) {
    EXPECT_TRUE(region[key].is_null()) << key;
  }
  EXPECT_TRUE(region["percentiles"]["50"].is_null());
}

TEST(MeasureReport, ConditionsOfACoreThatComputes_LackWhatItDoesNotKnow) {
  Conditions conditions = usualConditions();
  conditions.by_core = true;
  conditions.lens.clear();
  const json object = json::parse(measureJson(conditions, measured({"spot:0,0"}), {}, kKelvin));
  EXPECT_EQ(object["computed_by"], "core");
  EXPECT_TRUE(object["distance_m"].is_null());
  EXPECT_TRUE(object["humidity"].is_null());
  EXPECT_TRUE(object["lens"].is_null());
  EXPECT_EQ(object["reflected"], 303.15);
  EXPECT_EQ(conditionSummary(conditions, kCelsius),
            "Range low, emissivity 0.9, reflected 30 °C, atmosphere 20 °C, computed by the core");
  EXPECT_EQ(conditionSummary(usualConditions(), kCelsius),
            "Lens L25mm, range low, emissivity 0.9, reflected 30 °C, atmosphere 20 °C, 2.5 m, 40 % humidity");
}

TEST(MeasureReport, Csv_HasAsManyFieldsAsItsHeading) {
  const MeasureDetails details{{5.0, 95.0}, {}};
  EXPECT_EQ(csvHeading(details),
            "time,region,unit,pixels,min,mean,max,sd,min_x,min_y,max_x,max_y,nan,below_limit,above_limit,"
            "frames_per_second,core_temperature,lens,range,p5,p95\n");
  Measurement measurement = measured({"box:0,0,2,1", "n=spot:3,1"}, details);
  EXPECT_EQ(csvLines(usualConditions(), measurement, kCelsius),
            "2026-11-21T09:15:36.123Z,\"box:0,0,2,1\",C,2,10.000,10.500,11.000,0.500,0,0,1,0,0,0,0,"
            ",25.100,\"L25mm\",low,10.050,10.950\n"
            "2026-11-21T09:15:36.123Z,\"n\",C,0,,,,,,,,,1,0,0,,25.100,\"L25mm\",low,,\n");

  measurement = measured({"n=spot:3,1"});
  measurement.frames_per_second = 29.97;
  Conditions conditions = usualConditions();
  conditions.lens = "2\"";
  EXPECT_EQ(csvLines(conditions, measurement, kKelvin),
            "2026-11-21T09:15:36.123Z,\"n\",K,0,,,,,,,,,1,0,0,29.970,298.250,\"2\"\"\",low\n");
}

TEST(MeasureReport, Watching_TellsRateAndConditions) {
  Measurement measurement = measured({"spot:0,0"});
  Conditions conditions = usualConditions();
  EXPECT_EQ(watchLine(conditions, measurement, kCelsius),
            "2026-11-21T09:15:36.123Z - frames/s, core 25.1 °C, lens L25mm, range low\n");
  measurement.frames_per_second = 8.96;
  EXPECT_EQ(watchTable(conditions, measurement, kCelsius, 79),
            "FRAMES/S  CORE °C  LENS   RANGE\n"
            "9.0       25.1     L25mm  low\n");
  conditions.lens.clear();
  EXPECT_EQ(watchTable(conditions, measurement, kFahrenheit, 79),
            "FRAMES/S  CORE °F  LENS  RANGE\n"
            "9.0       77.2     -     low\n");
  EXPECT_EQ(json::parse(measureJson(conditions, measurement, {}, kCelsius))["frames_per_second"], 8.96);
  measurement.frames_per_second.reset();
  EXPECT_TRUE(json::parse(measureJson(conditions, measurement, {}, kCelsius))["frames_per_second"].is_null());
}

TEST(MeasureReport, Histogram_HasALinePerBin) {
  EXPECT_EQ(histogramTables(measured({"a=box:0,0,4,1", "n=spot:3,1"}, {{}, 3}), kCelsius),
            "\na\n"
            "FROM °C  TO °C  PIXELS\n"
            "10.00    11.00  1       ####################\n"
            "11.00    12.00  1       ####################\n"
            "12.00    13.00  2       ########################################\n");
}

TEST(MeasureReport, HistogramOfOneTemperature_IsADegreeWide) {
  const Measurement measurement = measured({"spot:0,0"}, {{}, 4});
  ASSERT_TRUE(measurement.regions[0].histogram);
  EXPECT_EQ(measurement.regions[0].histogram->bins.lower, 9.5);
  EXPECT_EQ(measurement.regions[0].histogram->bins.upper, 10.5);
}

TEST(MeasureReport, Warnings_TellOfLimitsAndOfNoTemperature) {
  const SensorModel model{{}, {}, {-40.0, 550.0}, RawMeaning::Counts};
  EXPECT_EQ(measureWarnings(measured({"a=box:0,0,2,2"}), model, kCelsius), "");
  const RawLimits limits{{7, 5000}, {5006, 9000}};
  EXPECT_EQ(measureWarnings(measured({"a=box:0,0,4,2"}, {}, limits), model, kFahrenheit),
            "\"a\": 1 pixel without a temperature, left out of the numbers.\n"
            "\"a\": 2 pixels colder than the model's limit of -40 °F.\n"
            "\"a\": 1 pixel hotter than the model's limit of 1022 °F.");
}

}  // namespace
}  // namespace keocam::cli
