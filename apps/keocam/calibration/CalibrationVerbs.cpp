#include "apps/keocam/calibration/CalibrationVerbs.h"

namespace keocam::cli {
namespace {

constexpr Verb kCalibration{kCalibrationVerb, "Show, check or make up calibration files",
                            "keocam calibration check calibrations/KEOD2001/calibration.txt"};

constexpr Verb kShow{"show", "Show its lenses, sizes and checksums",
                     "keocam calibration show calibrations/KEOD2001/calibration.txt"};
constexpr Verb kCheck{"check", "Tell what is wrong with it",
                      "keocam calibration check calibrations/KEOD2001/calibration.txt"};
constexpr Verb kMake{kMakeVerb, "Make one up for a simulated camera",
                     "keocam calibration make --folder calibrations --serial KEOD2001"};

constexpr const char* kCheckNotes =
    "A line for each thing that is wrong or doubtful, with its place in bytes, the\n"
    "first of which is 0. Exit status 1 if something is wrong.\n\n";

template <typename Options>
void addFileVerb(CLI::App& parent, const Verb& verb, Command& chosen, const std::string& notes) {
  const auto added = addVerbWithOptions<Options>(parent, verb, chosen, notes);
  added.app->add_option("FILE", added.options.path, "The calibration text")->type_name("")->required();
  added.app->add_option("--version", added.options.given.version, "The text's version; else manifest.txt tells it")
      ->type_name("V");
  added.app->add_option("--serial", added.options.given.serial_number, "The camera's; else the folder's name")
      ->type_name("SERIAL");
  added.app->add_flag("--json", added.options.json, "Print an object instead of lines");
}

}  // namespace

Verb calibrationVerb() { return kCalibration; }

std::vector<std::string> namesBehindCalibration() { return {kShow.name, kCheck.name, kMake.name}; }

void addCalibrationVerbs(CLI::App& app, Command& chosen) {
  CLI::App* const calibration = addVerb(app, kCalibration)->fallthrough();
  calibration->require_subcommand(1);
  addFileVerb<CalibrationShowOptions>(*calibration, kShow, chosen, "");
  addFileVerb<CalibrationCheckOptions>(*calibration, kCheck, chosen, kCheckNotes);
  addVerb(*calibration, kMake);
}

}  // namespace keocam::cli
