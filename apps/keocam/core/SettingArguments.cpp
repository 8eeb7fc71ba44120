#include "apps/keocam/core/SettingArguments.h"

#include <algorithm>
#include <variant>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/core/RadiometrySettings.h"
#include "apps/keocam/core/SettingText.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Suggestion.h"
#include "apps/keocam/terminal/WrappedTable.h"

namespace keocam::cli {
namespace {

constexpr std::size_t kHelpColumns = 74;

std::vector<std::string> namesLike(const std::string& text) {
  std::vector<std::string> all;
  std::vector<std::string> like;
  for (const SettingRow* const setting : listedSettings()) {
    all.emplace_back(setting->name);
    if (text.size() > 2 && all.back().find(text) != std::string::npos) like.push_back(all.back());
  }
  const std::string near = nearest(text, all);
  if (!near.empty() && std::find(like.begin(), like.end(), near) == like.end()) like.insert(like.begin(), near);
  return like;
}

std::string unknownText(const std::string& name) {
  std::string text = "There is no setting " + inQuotes(name);
  const std::vector<std::string> like = namesLike(name);
  for (std::size_t i = 0; i < like.size(); ++i) text += (i == 0 ? "; did you mean " : " or ") + inQuotes(like[i]);
  return text + (like.empty() ? ". \"keocam get --help\" lists them." : "?");
}

// Collects what is wrong, to tell it all at once.
class Complaints {
 public:
  void add(const std::string& text) { text_ += (text_.empty() ? "" : "\n") + text; }
  void throwIfAny() const {
    if (!text_.empty()) throw CommandFailure(ExitStatus::Usage, text_);
  }

 private:
  std::string text_;
};

void readAssignment(const std::string& argument, std::vector<Assignment>& assignments, Complaints& complaints) {
  const std::size_t sign = argument.find('=');
  const std::string name = argument.substr(0, sign);
  const SettingRow* const setting = findListed(name);
  if (setting == nullptr) return complaints.add(unknownText(name));
  if (sign == std::string::npos) {
    return complaints.add(name + " has no value: write " + name + "=VALUE. It takes: " + acceptedText(*setting) + ".");
  }
  const auto parsed = parseValue(*setting, std::string_view(argument).substr(sign + 1));
  if (const auto* const wrong = std::get_if<std::string>(&parsed)) return complaints.add(*wrong);
  const bool twice = std::any_of(assignments.begin(), assignments.end(),
                                 [setting](const Assignment& earlier) { return earlier.setting == setting; });
  if (twice) return complaints.add(name + " is given twice; give it once.");
  assignments.push_back({setting, std::get<int>(parsed)});
}

std::string helpTable(const char* heading, std::string (*text)(const SettingRow&)) {
  std::vector<TableRow> rows;
  for (const SettingRow* const setting : listedSettings()) {
    rows.push_back({"", std::string(setting->name), text(*setting)});
  }
  return wrappedTable({"", "SETTING", heading}, rows, kHelpColumns);
}

}  // namespace

std::vector<const SettingRow*> settingsNamed(const std::vector<std::string>& names) {
  if (names.empty()) return listedSettings();
  std::vector<const SettingRow*> settings;
  Complaints complaints;
  for (const std::string& name : names) {
    settings.push_back(findListed(name));
    if (settings.back() == nullptr) complaints.add(unknownText(name));
  }
  complaints.throwIfAny();
  return settings;
}

std::vector<Assignment> assignmentsIn(const std::vector<std::string>& arguments) {
  std::vector<Assignment> assignments;
  Complaints complaints;
  if (arguments.empty()) complaints.add("There is nothing to set: write NAME=VALUE, such as ffc-mode=manual.");
  for (const std::string& argument : arguments) readAssignment(argument, assignments, complaints);
  complaints.throwIfAny();
  return assignments;
}

std::string settingMeanings() {
  return helpTable("MEANING", [](const SettingRow& setting) { return std::string(setting.meaning); });
}

std::string settingChoices() { return helpTable("TAKES", acceptedText); }

}  // namespace keocam::cli
