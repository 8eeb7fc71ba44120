#include "apps/keocam/VerbGroups.h"

#include <algorithm>

#include "apps/keocam/calibration/CalibrationVerbs.h"
#include "apps/keocam/core/CoreVerbs.h"
#include "apps/keocam/lens/LensVerbs.h"
#include "apps/keocam/temperature/TemperatureVerbs.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Suggestion.h"

namespace keocam::cli {
namespace {

using Words = std::vector<std::string>;

struct VerbGroup {
  const char* name;
  Words (*members)();
  const char* example;  // with an option where it belongs
};

constexpr VerbGroup kGroups[] = {
    {kCoreVerb, namesBehindCore, "keocam core info --camera SERIAL"},
    {kLensVerb, namesBehindLens, "keocam lens current --camera SERIAL"},
    {kRangeVerb, namesBehindRange, "keocam range show --camera SERIAL"},
    {kCalibrationVerb, namesBehindCalibration, "keocam calibration show FILE --json"},
};

const VerbGroup* groupNamed(const std::string& name) {
  const auto* const found = std::find_if(std::begin(kGroups), std::end(kGroups),
                                         [&name](const VerbGroup& group) { return name == group.name; });
  return found == std::end(kGroups) ? nullptr : found;
}

// The first plain word from `from` on. No option before a verb takes a value, so that is the verb.
std::size_t plainWord(const Words& arguments, std::size_t from) {
  while (from < arguments.size() && !arguments[from].empty() && arguments[from].front() == '-') ++from;
  return from;
}

std::string unknown(const std::string& before, const std::string& word, const Words& names) {
  if (std::find(names.begin(), names.end(), word) != names.end()) return {};
  return "There is no verb " + inQuotes(before + word) + didYouMean(word, names);
}

}  // namespace

VerbWords verbWordsIn(const Words& arguments) {
  VerbWords words;
  const std::size_t first = plainWord(arguments, 0);
  if (first == arguments.size()) return words;
  words.any = true;
  words.first = arguments[first];
  words.end = first + 1;
  if (groupNamed(words.first) == nullptr) return words;
  words.group = words.first;
  const std::size_t member = plainWord(arguments, first + 1);
  if (member == arguments.size()) return words;
  words.has_member = true;
  words.member = arguments[member];
  words.adjacent = member == first + 1;
  words.end = member + 1;
  return words;
}

std::string complaintAbout(const VerbWords& words, const Words& names) {
  if (!words.any) return {};
  if (std::string complaint = unknown("", words.first, names); !complaint.empty()) return complaint;
  if (!words.has_member) return {};
  const VerbGroup& group = *groupNamed(words.group);
  std::string complaint = unknown(words.group + ' ', words.member, group.members());
  if (complaint.empty() || words.adjacent) return complaint;
  // The word may have been meant as the value of the option before it.
  return std::string("Options stand behind the verb, as in \"") + group.example + "\"; " + inQuotes(words.member) +
         " is no verb behind \"" + group.name + "\".";
}

std::string missingVerbText(const VerbWords& words) {
  if (!words.any) return "A verb is missing.";
  if (words.group.empty() || words.has_member) return {};
  std::string text;
  for (const std::string& name : groupNamed(words.group)->members()) text += (text.empty() ? "" : ", ") + name;
  return "A verb is missing behind \"" + words.group + "\": " + text + ".";
}

}  // namespace keocam::cli
