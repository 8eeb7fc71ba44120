#include "apps/keocam/lens/LensName.h"

#include <algorithm>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/calibration/CalibrationKeys.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Suggestion.h"

namespace keocam::cli {
namespace {

std::string lowerCase(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return text;
}

// A slip of the pen, or a part of the name.
std::string near(const std::string& name, const std::vector<std::string>& names) {
  std::string slip = didYouMean(name, names);
  if (!slip.empty() || name.size() < 2) return slip;
  const auto holds = [part = lowerCase(name)](const std::string& whole) {
    return lowerCase(whole).find(part) != std::string::npos;
  };
  const auto found = std::find_if(names.begin(), names.end(), holds);
  return found == names.end() ? std::string() : "; did you mean " + inQuotes(*found) + "?";
}

CommandFailure unknown(const std::string& name, const std::vector<LensSummary>& lenses) {
  std::vector<std::string> names;
  std::string all;
  for (const LensSummary& lens : lenses) {
    names.emplace_back(withoutTrailingBlanks(lens.name));
    all += (all.empty() ? "" : ", ") + shownName(lens.name);
  }
  const std::string suggestion = near(name, names);
  return {ExitStatus::Failure, "The calibration has no lens " + inQuotes(name) +
                                   (suggestion.empty() ? "." : suggestion) + " It has: " + all + "."};
}

}  // namespace

std::size_t lensNamed(const std::string& name, const std::vector<LensSummary>& lenses) {
  const auto same = [&name](const LensSummary& lens) { return lens.name == name; };
  const auto alike = [&name](const LensSummary& lens) {
    return withoutTrailingBlanks(lens.name) == withoutTrailingBlanks(name);
  };
  auto found = std::find_if(lenses.begin(), lenses.end(), same);
  if (found == lenses.end()) found = std::find_if(lenses.begin(), lenses.end(), alike);
  if (found == lenses.end()) throw unknown(name, lenses);
  return static_cast<std::size_t>(found - lenses.begin());
}

}  // namespace keocam::cli
