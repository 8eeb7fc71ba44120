#include "apps/keocam/core/SetCommand.h"

#include "apps/keocam/core/CoreSession.h"
#include "apps/keocam/core/RadiometrySettings.h"
#include "apps/keocam/core/SettingWrites.h"
#include "apps/keocam/terminal/Table.h"
#include "serial/CheckedExchange.h"

namespace keocam::cli {
namespace {

SettingAccess accessTo(CoreSession& session) {
  SettingAccess access;
  access.write = [&session](const SettingRow& setting, int value) {
    return session.attempt([&] { return writeListed(session.core(), setting, value); });
  };
  access.read = [&session](const SettingRow& setting) {
    return session.attempt([&] { return readListed(session.core(), setting); });
  };
  access.correctFlatField = [&session] {
    return session.attempt([&] { return checkedWrite(session.core(), DO_FFC, nullptr, {}); });
  };
  return access;
}

}  // namespace

ExitStatus runSet(const SetOptions& options, const Console& console, DataOutput& output) {
  const std::vector<Assignment> assignments = assignmentsIn(options.assignments);
  const auto session = connectedCore(options.serial_number, console);
  const SettingOutcome outcome = writeSettings(assignments, accessTo(*session));
  if (!outcome.done.empty()) {
    output.write(options.json ? settingJson(outcome.done) : shortSettingTable(outcome.done, widthOfOutput()));
  }
  if (outcome.failure) throw CommandFailure(*outcome.failure);
  return ExitStatus::Ok;
}

}  // namespace keocam::cli
