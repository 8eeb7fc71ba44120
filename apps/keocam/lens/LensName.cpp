#include "apps/keocam/lens/LensName.h"

#include <algorithm>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/calibration/CalibrationKeys.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Suggestion.h"

namespace keocam::cli {
namespace {

CommandFailure unknown(const std::string& name, const std::vector<LensSummary>& lenses) {
  std::vector<std::string> names;
  std::string all;
  for (const LensSummary& lens : lenses) {
    names.emplace_back(withoutTrailingBlanks(lens.name));
    all += (all.empty() ? "" : ", ") + shownName(lens.name);
  }
  const std::string suggestion = didYouMean(name, names);
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
