// The verbs for temperatures on the command line.
#include <cstdlib>
#include <sstream>

#include "../core/ParsedVerbs.h"
#include "FailureText.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

TEST(TemperatureVerbs, Measure_WithoutOptionsMeasuresOnce) {
  ::unsetenv("KEOCAM_DATA_DIR");
  const auto options = optionsOf<MeasureOptions>({"measure"});
  EXPECT_TRUE(options.regions.empty());
  EXPECT_TRUE(options.percents.empty());
  EXPECT_FALSE(options.histogram_bins);
  EXPECT_FALSE(options.watch);
  EXPECT_FALSE(options.count);
  EXPECT_FALSE(options.json);
  EXPECT_FALSE(options.csv);
  EXPECT_EQ(options.thermometer.unit, "C");
  EXPECT_EQ(options.thermometer.calibrations, "");
  EXPECT_FALSE(options.thermometer.lens);
  EXPECT_FALSE(options.thermometer.range);
  EXPECT_FALSE(options.thermometer.object.emissivity);
}

TEST(TemperatureVerbs, Measure_TakesRegionsAndOptionsInAnyOrder) {
  const auto options = optionsOf<MeasureOptions>({"measure",
                                                  "a=box:1,2,3,4",
                                                  "-p",
                                                  "5",
                                                  "--percentile",
                                                  "95",
                                                  "spot:1,2",
                                                  "-c",
                                                  "A",
                                                  "--lens",
                                                  "L",
                                                  "--range",
                                                  "high",
                                                  "--unit",
                                                  "K",
                                                  "--emissivity",
                                                  "0.9",
                                                  "--reflected",
                                                  "-20",
                                                  "--atmosphere",
                                                  "290",
                                                  "--distance",
                                                  "5",
                                                  "--humidity",
                                                  "40%",
                                                  "--watch",
                                                  "--interval",
                                                  "0.5",
                                                  "--count",
                                                  "7",
                                                  "--csv"});
  EXPECT_EQ(options.regions, (std::vector<std::string>{"a=box:1,2,3,4", "spot:1,2"}));
  EXPECT_EQ(options.percents, (std::vector<double>{5.0, 95.0}));
  EXPECT_EQ(options.thermometer.serial_number, "A");
  EXPECT_EQ(options.thermometer.lens, "L");
  EXPECT_EQ(options.thermometer.range, "high");
  EXPECT_EQ(options.thermometer.unit, "K");
  EXPECT_EQ(options.thermometer.object.emissivity, "0.9");
  EXPECT_EQ(options.thermometer.object.reflected, "-20");
  EXPECT_EQ(options.thermometer.object.atmosphere, "290");
  EXPECT_EQ(options.thermometer.object.distance, "5");
  EXPECT_EQ(options.thermometer.object.humidity, "40%");
  EXPECT_TRUE(options.watch);
  EXPECT_EQ(options.interval_s, 0.5);
  EXPECT_EQ(options.count, 7U);
  EXPECT_TRUE(options.csv);
}

TEST(TemperatureVerbs, MeasureOptionsThatMakeNoSense_AreRefused) {
  EXPECT_TRUE(mentions(refusalOf({"measure", "--interval", "2"}), "--watch"));
  EXPECT_TRUE(mentions(refusalOf({"measure", "--count", "2"}), "--watch"));
  EXPECT_TRUE(mentions(refusalOf({"measure", "--json", "--csv"}), "--csv"));
  EXPECT_TRUE(mentions(refusalOf({"measure", "--range", "hi"}), "low, middle, high"));
  for (const char* const wrong : {"-1", "101", "nan", "x"}) {
    EXPECT_TRUE(mentions(refusalOf({"measure", "-p", wrong}), "from 0 to 100")) << wrong;
  }
  for (const char* const wrong : {"-1", "nan", "1e9"}) {
    EXPECT_TRUE(mentions(refusalOf({"measure", "-w", "-i", wrong}), "--interval")) << wrong;
  }
  for (const char* const wrong : {"0", "-1", "x"}) refusalOf({"measure", "-w", "-n", wrong});
  for (const char* const wrong : {"0", "1001", "x"}) refusalOf({"measure", "--histogram", wrong});
}

TEST(TemperatureVerbs, Snapshot_TakesAFileAndOptions) {
  const auto options = optionsOf<SnapshotOptions>(
      {"snapshot", "a.png", "--palette", "white-hot", "--span", "-5", "40", "--unit", "F", "--calibrations", "/data"});
  EXPECT_EQ(options.path, "a.png");
  EXPECT_EQ(options.palette, "white-hot");
  EXPECT_EQ(options.span, (std::vector<std::string>{"-5", "40"}));
  EXPECT_EQ(options.thermometer.unit, "F");
  EXPECT_EQ(options.thermometer.calibrations, "/data");
  EXPECT_TRUE(mentions(refusalOf({"snapshot"}), "FILE is required"));
}

TEST(TemperatureVerbs, Range_ShowsAndSets) {
  EXPECT_TRUE(optionsOf<RangeShowOptions>({"range", "show", "--json"}).json);
  const auto options = optionsOf<RangeSetOptions>({"range", "set", "high", "-c", "A", "--lens", "L"});
  EXPECT_EQ(options.range, "high");
  EXPECT_EQ(options.serial_number, "A");
  EXPECT_EQ(options.lens, "L");
  EXPECT_TRUE(mentions(refusalOf({"range"}), "behind \"range\": show, set."));
  EXPECT_TRUE(mentions(refusalOf({"range", "sett"}), "did you mean \"set\""));
}

TEST(TemperatureVerbs, Helps_FitIn80Columns) {
  for (const Arguments& verb : {Arguments{"measure"}, Arguments{"snapshot"}, Arguments{"range", "set"}}) {
    Arguments arguments = verb;
    arguments.emplace_back("--help");
    const auto parsed = parseCommandLine(arguments);
    const auto* const answer = std::get_if<Answer>(&parsed);
    ASSERT_NE(answer, nullptr);
    std::istringstream lines(answer->text);
    for (std::string line; std::getline(lines, line);) {
      EXPECT_LE(columnsOf(line), line.rfind("Example: ", 0) == 0 ? 100U : 80U) << line;
    }
  }
}

}  // namespace
}  // namespace keocam::cli
