#include "apps/keocam/core/InfoCommand.h"

#include "apps/keocam/core/CoreInfoReading.h"

namespace keocam::cli {
ExitStatus runInfo(const InfoOptions& options, const Console& console, DataOutput& output) {
  const auto session = connectedCore(options.serial_number, console);
  CoreInfo info;
  readCoreInfo(*session, info);
  output.write(options.json ? coreInfoJson(session->camera(), info) : coreInfoText(session->camera(), info));
  if (const auto failures = failuresAmong(info); !failures.empty()) throw notRead(failures);
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
