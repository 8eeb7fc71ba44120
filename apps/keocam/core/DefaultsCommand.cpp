#include "apps/keocam/core/DefaultsCommand.h"

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/core/CoreCommand.h"
#include "apps/keocam/core/CoreSession.h"
#include "apps/keocam/terminal/Confirmation.h"

namespace keocam::cli {

ExitStatus runDefaults(const DefaultsOptions& options, const Console& console) {
  const auto session = connectedCore(options.serial_number, console);
  command(*session, SET_DEFAULTS, "Keeping the settings");
  console.note("The core powers up with its present settings from now on.");
  return ExitStatus::Ok;
}

ExitStatus runFactoryDefaults(const FactoryDefaultsOptions& options, const Console& console) {
  if (!options.yes && !canAsk()) {
    throw CommandFailure(ExitStatus::Usage,
                         "This replaces all settings of the core, and there is no terminal to ask on. Give --yes if it "
                         "is what you want.");
  }
  CoreSession session(options.serial_number, console);
  // Asked before the connection is made: a camera that is held while someone thinks is of no use to anyone else.
  const std::string question =
      "Replace all settings of the core of " + nameOf(session.camera()) + " by the factory's, also for power-up?";
  if (!options.yes && !confirmed(question)) {
    console.note("Nothing was changed.");
    return ExitStatus::Failure;
  }
  session.connect();
  command(session, RESTORE_FACTORY_DEFAULTS, "Restoring the factory's settings");
  console.note("The core has the factory's settings.");
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
