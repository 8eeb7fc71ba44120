#include "apps/keocam/core/GetCommand.h"

#include <algorithm>

#include "apps/keocam/core/CoreSession.h"
#include "apps/keocam/core/RadiometrySettings.h"
#include "apps/keocam/core/SettingArguments.h"
#include "apps/keocam/core/SettingReport.h"
#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {
namespace {

CommandFailure failureOf(const std::vector<SettingReading>& readings, const CommandFailure& failure) {
  const bool lack = std::any_of(readings.begin(), readings.end(), [](const SettingReading& reading) {
    return isLackOfRadiometry(*reading.setting, reading.value.status);
  });
  return lack ? CommandFailure(failure.status(), std::string(failure.what()) + ' ' + kNotRadiometric) : failure;
}

}  // namespace

ExitStatus runGet(const GetOptions& options, const Console& console, DataOutput& output) {
  const std::vector<const SettingRow*> settings = settingsNamed(options.names);
  const auto session = connectedCore(options.serial_number, console);
  std::vector<SettingReading> readings;
  readings.reserve(settings.size());
  for (const SettingRow* const setting : settings) {
    const CoreValue<int> value = session->attempt([&] { return readListed(session->core(), *setting); });
    // Who asks for everything asks for what there is.
    if (options.names.empty() && isLackOfRadiometry(*setting, value.status)) continue;
    readings.push_back({setting, value});
  }
  output.write(options.json ? settingJson(readings) : settingTable(readings, widthOfOutput()));
  if (const auto failures = failuresAmong(readings); !failures.empty()) throw failureOf(readings, notRead(failures));
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
