#include "apps/keocam/core/SettingWrites.h"

#include "apps/keocam/core/RadiometrySettings.h"
#include "apps/keocam/core/SettingText.h"
#include "apps/keocam/core/StatusText.h"
#include "serial/FunctionCodes.h"

namespace keocam::cli {
namespace {

std::string textOf(const Assignment& assignment) {
  return std::string(assignment.setting->name) + "=" + valueText(*assignment.setting, assignment.value);
}

std::string unsentText(const std::vector<Assignment>& assignments, std::size_t first) {
  std::string text;
  for (std::size_t i = first; i < assignments.size(); ++i) {
    text += (text.empty() ? " Not sent any more: " : ", ") + textOf(assignments[i]);
  }
  return text.empty() ? text : text + ".";
}

std::string settingAdvice(const SettingRow& setting, ResponseStatuses status) {
  if (isLackOfRadiometry(setting, status)) return kNotRadiometric;
  return adviceOn(status);
}

struct Failure {
  ExitStatus status;
  std::string text;
};

Failure refused(const Assignment& assignment, ResponseStatuses status) {
  return {exitStatusOf(status),
          textOf(assignment) + " was not set: " + wordsFor(status) + ". " + settingAdvice(*assignment.setting, status)};
}

Failure unreadable(const Assignment& assignment, ResponseStatuses status) {
  return {exitStatusOf(status), textOf(assignment) + " was sent, but could not be read back: " + wordsFor(status) +
                                    ". Look at it with \"keocam get " + assignment.setting->name + "\"."};
}

Failure different(const Assignment& assignment, int value) {
  return {ExitStatus::Failure, textOf(assignment) + " was sent and accepted, but the core now says " +
                                   valueText(*assignment.setting, value) +
                                   ". Another setting may stand against it, or the core does not have this value."};
}

Failure uncorrected(const Assignment& assignment, ResponseStatuses status) {
  return {exitStatusOf(status), textOf(assignment) +
                                    " was set, but the flat-field correction that must follow was not "
                                    "made: " +
                                    wordsFor(status) + ". Make it with \"keocam ffc\"."};
}

// Writes, reads back, and corrects the flat field where that is due, whether or not the value could be read back.
std::optional<Failure> carryOut(const Assignment& assignment, const SettingAccess& core,
                                std::vector<SettingReading>& done) {
  const SettingRow& setting = *assignment.setting;
  const ResponseStatuses written = core.write(setting, assignment.value);
  if (written != CAM_OK) return refused(assignment, written);
  const CoreValue<int> value = core.read(setting);
  const ResponseStatuses corrected = setting.code == VIDEO_STANDARD ? core.correctFlatField() : CAM_OK;
  if (!value.ok()) return unreadable(assignment, value.status);
  done.push_back({&setting, value});
  if (value.value != assignment.value) return different(assignment, value.value);
  if (corrected != CAM_OK) return uncorrected(assignment, corrected);
  return std::nullopt;
}

}  // namespace

SettingOutcome writeSettings(const std::vector<Assignment>& assignments, const SettingAccess& core) {
  SettingOutcome outcome;
  for (std::size_t i = 0; i < assignments.size(); ++i) {
    const auto failure = carryOut(assignments[i], core, outcome.done);
    if (!failure) continue;
    outcome.failure.emplace(failure->status, failure->text + unsentText(assignments, i + 1));
    break;
  }
  return outcome;
}

}  // namespace keocam::cli
