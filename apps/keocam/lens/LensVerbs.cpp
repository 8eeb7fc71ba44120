#include "apps/keocam/lens/LensVerbs.h"

namespace keocam::cli {
namespace {

constexpr Verb kLens{kLensVerb, "The lens whose tables the core corrects with",
                     "keocam lens set L25mm --calibrations calibrations"};

constexpr Verb kList{"list", "The lenses of a camera's calibration",
                     "keocam lens list --camera KEOD2001 --calibrations calibrations"};
constexpr Verb kCurrent{"current", "The lens whose tables the core holds",
                        "keocam lens current --calibrations calibrations"};
constexpr Verb kSet{"set", "Write a lens' tables into the core; takes minutes",
                    "keocam lens set L25mm --calibrations calibrations"};

constexpr const char* kSetNotes =
    "Two tables are erased, written and read back, at the core's 57600 baud: for a\n"
    "640x512 sensor some 20 minutes, half of that without reading back. Ctrl-C stops\n"
    "between two pieces; run it again then, the core cannot use a table in pieces.\n\n";

}  // namespace

Verb lensVerb() { return kLens; }

std::vector<std::string> namesBehindLens() { return {kList.name, kCurrent.name, kSet.name}; }

void addLensVerbs(CLI::App& app, Command& chosen) {
  CLI::App* const lens = addVerb(app, kLens)->fallthrough();
  lens->require_subcommand(1);

  const auto list = addVerbWithOptions<LensListOptions>(*lens, kList, chosen);
  addCameraOption(*list.app, list.options.serial_number);
  addCalibrationsOption(*list.app, list.options.calibrations);
  list.app->add_flag("--json", list.options.json, "Print an object instead of a table");

  const auto current = addVerbWithOptions<LensCurrentOptions>(*lens, kCurrent, chosen);
  addCameraOption(*current.app, current.options.serial_number);
  addCalibrationsOption(*current.app, current.options.calibrations);
  current.app->add_flag("--json", current.options.json, "Print an object instead of the name");

  const auto set = addVerbWithOptions<LensSetOptions>(*lens, kSet, chosen, kSetNotes);
  set.app->add_option("NAME", set.options.name, "The lens, as \"keocam lens list\" tells it")
      ->type_name("")
      ->required();
  addCameraOption(*set.app, set.options.serial_number);
  addCalibrationsOption(*set.app, set.options.calibrations);
  set.app->add_flag("--no-verify", set.options.no_verify, "Do not read the tables back; takes half the time");
}

}  // namespace keocam::cli
