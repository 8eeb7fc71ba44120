#include "apps/keocam/core/SetCommand.h"

#include "apps/keocam/core/CoreSession.h"
#include "apps/keocam/core/SettingWrites.h"
#include "apps/keocam/terminal/Table.h"
#include "serial/CheckedExchange.h"
#include "serial/CoreSettings.h"

namespace keocam::cli {
namespace {

// Any exchange that fails because the camera has gone ends the command.
SettingAccess accessTo(CoreSession& session) {
  const auto checked = [&session](ResponseStatuses status) {
    if (status != CAM_OK) session.requireLink();
    return status;
  };
  SettingAccess access;
  access.write = [&session, checked](const SettingRow& setting, int value) {
    return checked(writeSetting(session.core(), setting, value));
  };
  access.read = [&session, checked](const SettingRow& setting) {
    const CoreValue<int> value = readSetting(session.core(), setting);
    static_cast<void>(checked(value.status));
    return value;
  };
  access.correctFlatField = [&session, checked] { return checked(checkedWrite(session.core(), DO_FFC, nullptr, {})); };
  return access;
}

}  // namespace

ExitStatus runSet(const SetOptions& options, const Console& console, DataOutput& output) {
  const std::vector<Assignment> assignments = assignmentsIn(options.assignments);
  const auto session = connectedCore(options.serial_number, console);
  const SettingOutcome outcome = writeSettings(assignments, accessTo(*session));
  if (!outcome.done.empty()) {
    output.write(options.json ? settingJson(outcome.done) : settingTable(outcome.done, widthOfOutput()));
  }
  if (outcome.failure) throw CommandFailure(*outcome.failure);
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
