#include "apps/keocam/core/CoreVerbs.h"

#include "apps/keocam/core/SettingArguments.h"

namespace keocam::cli {
namespace {

constexpr Verb kGet{"get", "Show the thermal core's settings", "keocam get ffc-mode palette"};
constexpr Verb kSet{"set", "Change the thermal core's settings", "keocam set ffc-mode=manual contrast=40"};
constexpr Verb kFfc{"ffc", "Make the core correct its flat field once", "keocam ffc"};
constexpr Verb kCore{kCoreVerb, "What the core is; its restart and its defaults", "keocam core info"};

constexpr Verb kInfo{"info", "Its numbers, versions and temperatures", "keocam core info --json"};
constexpr Verb kReset{"reset", "Restart the core and wait until it answers again", "keocam core reset"};
constexpr Verb kDefaults{"defaults", "Keep the present settings for power-up", "keocam core defaults"};
constexpr Verb kFactoryDefaults{"factory-defaults", "Restore the factory's settings, for power-up too",
                                "keocam core factory-defaults --yes"};

void addGet(CLI::App& app, Command& chosen) {
  const auto verb = addVerbWithOptions<GetOptions>(app, kGet, chosen, settingMeanings() + '\n');
  verb.app->add_option("NAME", verb.options.names, "Settings; all if none is named")->type_name("");
  addCameraOption(*verb.app, verb.options.serial_number);
  verb.app->add_flag("--json", verb.options.json, "Print an object, name to value");
}

void addSet(CLI::App& app, Command& chosen) {
  const std::string notes =
      "A choice may be given by its number too, on and off as true and false, and a\nnumber in hexadecimal (0x1f).\n\n";
  const auto verb = addVerbWithOptions<SetOptions>(app, kSet, chosen, settingChoices() + '\n' + notes);
  verb.app->add_option("NAME=VALUE", verb.options.assignments, "Settings and their values, written in this order")
      ->type_name("");
  addCameraOption(*verb.app, verb.options.serial_number);
  verb.app->add_flag("--json", verb.options.json, "Print an object, name to value as read back");
}

void addFfc(CLI::App& app, Command& chosen) {
  const auto verb = addVerbWithOptions<FfcOptions>(app, kFfc, chosen);
  addCameraOption(*verb.app, verb.options.serial_number);
}

void addCore(CLI::App& app, Command& chosen) {
  CLI::App* const core = addVerb(app, kCore)->fallthrough();
  core->require_subcommand(1);

  const auto info = addVerbWithOptions<InfoOptions>(*core, kInfo, chosen);
  addCameraOption(*info.app, info.options.serial_number);
  info.app->add_flag("--json", info.options.json, "Print an object instead of lines");

  const auto reset = addVerbWithOptions<ResetOptions>(*core, kReset, chosen);
  addCameraOption(*reset.app, reset.options.serial_number);

  const auto defaults = addVerbWithOptions<DefaultsOptions>(*core, kDefaults, chosen);
  addCameraOption(*defaults.app, defaults.options.serial_number);

  const auto factory = addVerbWithOptions<FactoryDefaultsOptions>(*core, kFactoryDefaults, chosen);
  addCameraOption(*factory.app, factory.options.serial_number);
  factory.app->add_flag("-y,--yes", factory.options.yes, "Do not ask");
}

}  // namespace

std::vector<Verb> coreVerbs() { return {kGet, kSet, kFfc, kCore}; }

std::vector<std::string> namesBehindCore() { return {kInfo.name, kReset.name, kDefaults.name, kFactoryDefaults.name}; }

void addCoreVerbs(CLI::App& app, Command& chosen) {
  addGet(app, chosen);
  addSet(app, chosen);
  addFfc(app, chosen);
  addCore(app, chosen);
}

}  // namespace keocam::cli
