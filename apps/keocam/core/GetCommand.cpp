#include "apps/keocam/core/GetCommand.h"

#include "apps/keocam/core/CoreSession.h"
#include "apps/keocam/core/SettingArguments.h"
#include "apps/keocam/core/SettingReport.h"
#include "apps/keocam/terminal/Table.h"
#include "serial/CoreSettings.h"

namespace keocam::cli {

ExitStatus runGet(const GetOptions& options, const Console& console, DataOutput& output) {
  const std::vector<const SettingRow*> settings = settingsNamed(options.names);
  const auto session = connectedCore(options.serial_number, console);
  std::vector<SettingReading> readings;
  readings.reserve(settings.size());
  for (const SettingRow* const setting : settings) {
    readings.push_back({setting, session->attempt([&] { return readSetting(session->core(), *setting); })});
  }
  output.write(options.json ? settingJson(readings) : settingTable(readings, widthOfOutput()));
  if (const auto failures = failuresAmong(readings); !failures.empty()) throw notRead(failures);
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
