#include "apps/keocam/temperature/TemperatureVerbs.h"

#include "apps/keocam/temperature/NumberText.h"
#include "apps/keocam/temperature/RangeNames.h"
#include "apps/keocam/temperature/Snapshot.h"

namespace keocam::cli {
namespace {

constexpr Verb kMeasure{"measure", "Temperatures of parts of the picture",
                        "keocam measure bearing=box:100,80,40,30 spot:320,256 --emissivity 0.9"};

constexpr Verb kSnapshot{"snapshot", "One frame as a file: temperatures or a picture",
                         "keocam snapshot pump.tiff --emissivity 0.9"};

constexpr Verb kRange{kRangeVerb, "The temperature range that the core measures in", "keocam range set middle"};
constexpr Verb kShow{"show", "The range, as far as the core's gain tells it", "keocam range show"};
constexpr Verb kSet{"set", "Change the range; takes some seconds", "keocam range set high --calibrations calibrations"};

constexpr const char* kSetNotes =
    "The range is low, middle or high. High is for lenses that are calibrated for it\n"
    "and needs the folder of calibrations. The core's flat field is corrected last.\n\n";

constexpr const char* kMeasureNotes =
    "REGION is one of these, in pixels from the top left, with NAME= before it to\n"
    "give it a name; without any, the whole picture and its centre are measured:\n"
    "  spot:X,Y[,RADIUS]              box:X,Y,WIDTH,HEIGHT\n"
    "  ellipse:X,Y,RADIUS_X,RADIUS_Y  line:X1,Y1,X2,Y2\n"
    "  polygon:X1,Y1,X2,Y2,X3,Y3,...\n\n";

constexpr const char* kObjectNotes =
    "Object parameters hold for this run; without them the core's are used, of a\n"
    "core that has none 0.95, 20 °C, 20 °C, 1 m, 50%. Nothing changes on the core.\n\n";

// The library's own checks let "nan" pass.
CLI::Validator numberFrom(double lowest, double highest) {
  const auto check = [lowest, highest](const std::string& text) -> std::string {
    const std::optional<double> value = numberIn(text);
    if (value && *value >= lowest && *value <= highest) return {};
    return "it must be a number from " + shortText(lowest, 3) + " to " + shortText(highest, 3);
  };
  return CLI::Validator(check, "");
}

CLI::Validator rangeNamed() {
  const auto check = [](const std::string& text) -> std::string {
    return findRange(text) ? "" : "it must be one of " + rangeNamesText();
  };
  return CLI::Validator(check, "");
}

void addLensOptions(CLI::App& app, std::string& calibrations, std::optional<std::string>& lens) {
  addCalibrationsOption(app, calibrations);
  app.add_option("--lens", lens, "The lens; else the one whose tables the core has")->type_name("NAME");
}

void addThermometerOptions(CLI::App& app, ThermometerOptions& options) {
  addCameraOption(app, options.serial_number);
  addLensOptions(app, options.calibrations, options.lens);
  app.add_option("--range", options.range, "low, middle or high; else by the core's gain")
      ->type_name("RANGE")
      ->check(rangeNamed());
  app.add_option("--unit", options.unit, "C, K or F [C]")->type_name("UNIT");
  ObjectArguments& object = options.object;
  app.add_option("--emissivity", object.emissivity, "Of the object, 0.01 to 1")->type_name("E");
  app.add_option("--reflected", object.reflected, "Temperature of what the object reflects")->type_name("T");
  app.add_option("--atmosphere", object.atmosphere, "Temperature of the air in between")->type_name("T");
  app.add_option("--distance", object.distance, "To the object, in metres")->type_name("M");
  app.add_option("--humidity", object.humidity, "Of the air, as 50% or as 0.5")->type_name("H");
}

void addMeasure(CLI::App& app, Command& chosen) {
  const auto [command, options] =
      addVerbWithOptions<MeasureOptions>(app, kMeasure, chosen, std::string(kMeasureNotes) + kObjectNotes);
  command->add_option("REGION", options.regions, "Parts of the picture; see below")->type_name("");
  addThermometerOptions(*command, options.thermometer);
  command->add_option("-p,--percentile", options.percents, "A percentile too, 0 to 100; may be repeated")
      ->type_name("P")
      ->allow_extra_args(false)
      ->check(numberFrom(0.0, 100.0));
  command->add_option("--histogram", options.histogram_bins, "A histogram of each region with N bins")
      ->type_name("N")
      ->check(CLI::Range(1, 1000).description(""));
  CLI::Option* const watch = command->add_flag("-w,--watch", options.watch, "Measure again and again, until Ctrl-C");
  command->add_option("-i,--interval", options.interval_s, "With --watch: seconds from one to the next [1]")
      ->type_name("S")
      ->needs(watch)
      ->check(numberFrom(0.0, 86'400.0));
  command->add_option("-n,--count", options.count, "With --watch: stop after N measurements")
      ->type_name("N")
      ->needs(watch)
      ->check(CLI::Range(uint64_t{1}, uint64_t{1} << 48U, "").description(""));
  CLI::Option* const json = command->add_flag("--json", options.json, "Print an object on a line");
  command->add_flag("--csv", options.csv, "Print comma-separated values; not with --json")->excludes(json);
}

void addSnapshot(CLI::App& app, Command& chosen) {
  const auto [command, options] =
      addVerbWithOptions<SnapshotOptions>(app, kSnapshot, chosen, snapshotFormats() + '\n' + kObjectNotes);
  command->add_option("FILE", options.path, "What to write; its extension tells the format")->type_name("")->required();
  addThermometerOptions(*command, options.thermometer);
  command->add_option("--palette", options.palette, "Of a picture: thermal, white-hot or black-hot")->type_name("NAME");
  command->add_option("--span", options.span, "Temperatures at the ends of a picture's palette")
      ->option_text("LOW HIGH")
      ->expected(2);
}

void addRange(CLI::App& app, Command& chosen) {
  CLI::App* const range = addVerb(app, kRange)->fallthrough();
  range->require_subcommand(1);

  const auto show = addVerbWithOptions<RangeShowOptions>(*range, kShow, chosen);
  addCameraOption(*show.app, show.options.serial_number);
  show.app->add_flag("--json", show.options.json, "Print an object instead of the name");

  const auto set = addVerbWithOptions<RangeSetOptions>(*range, kSet, chosen, kSetNotes);
  set.app->add_option("RANGE", set.options.range, "low, middle or high")->type_name("")->required();
  addCameraOption(*set.app, set.options.serial_number);
  addLensOptions(*set.app, set.options.calibrations, set.options.lens);
}

}  // namespace

std::vector<Verb> temperatureVerbs() { return {kMeasure, kSnapshot, kRange}; }

std::vector<std::string> namesBehindRange() { return {kShow.name, kSet.name}; }

void addTemperatureVerbs(CLI::App& app, Command& chosen) {
  addMeasure(app, chosen);
  addSnapshot(app, chosen);
  addRange(app, chosen);
}

}  // namespace keocam::cli
