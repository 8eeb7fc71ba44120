#include "apps/keocam/core/FfcCommand.h"

#include "apps/keocam/core/CoreCommand.h"
#include "apps/keocam/core/CoreSession.h"

namespace keocam::cli {

ExitStatus runFfc(const FfcOptions& options, const Console& console) {
  const auto session = connectedCore(options.serial_number, console);
  command(*session, DO_FFC, "The flat-field correction");
  console.note("The core has accepted the flat-field correction.");
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
