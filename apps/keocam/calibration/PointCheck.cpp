#include "apps/keocam/calibration/PointCheck.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "apps/keocam/calibration/CalibrationKeys.h"
#include "apps/keocam/calibration/HexDigits.h"
#include "calibration/HexText.h"

namespace keocam::cli {
namespace {

constexpr std::size_t kFloatCharacters = 8;
constexpr std::size_t kPointsPerRow = 5;
constexpr std::size_t kRowsPerRange = 60;

// What a reader takes for the points.
std::string_view takenOf(const PointText& points) {
  return withoutTrailingBlanks(points.digits).substr(0, points.expected * kFloatCharacters);
}

std::vector<float> valuesOf(std::string_view digits) {
  std::vector<float> values;
  for (std::size_t i = 0; i + kFloatCharacters <= digits.size(); i += kFloatCharacters) {
    values.push_back(decodeHexFloat(digits.substr(i, kFloatCharacters)));
  }
  return values;
}

void checkDigits(const PointText& points, std::string_view taken, CalibrationFindings& findings) {
  const StrangeCharacters strange = otherThanHexDigits(taken);
  if (strange.count == 0) return;
  findings.wrong(points.offset + strange.first, "\"" + points.name + "\" " + textOn(strange) + ".");
}

void checkFinite(const PointText& points, const std::vector<float>& values, CalibrationFindings& findings) {
  const auto strange = [](float value) { return !std::isfinite(value); };
  const auto first = std::find_if(values.begin(), values.end(), strange);
  if (first == values.end()) return;
  const auto count = std::count_if(first, values.end(), strange);
  const auto index = static_cast<std::size_t>(first - values.begin());
  findings.wrong(points.offset + index * kFloatCharacters,
                 "\"" + points.name + "\" has " + std::to_string(count) +
                     " points that are infinite or no number; the first is point " + std::to_string(index + 1) + ".");
}

}  // namespace

void checkPoints(const PointText& points, CalibrationFindings& findings) {
  const std::string_view all = withoutTrailingBlanks(points.digits);
  const std::string_view taken = takenOf(points);
  const std::size_t wanted = points.expected * kFloatCharacters;
  if (taken.size() < wanted) {
    findings.wrong(points.offset + taken.size(),
                   "\"" + points.name + "\" ends after " + std::to_string(taken.size() / kFloatCharacters) + " of " +
                       std::to_string(points.expected) + " points (" + std::to_string(taken.size()) + " of " +
                       std::to_string(wanted) + " digits); what follows is taken for points.");
  } else if (all.size() > wanted) {
    findings.doubtful(points.offset + wanted, std::to_string(all.size() - wanted) + " characters behind the " +
                                                  std::to_string(points.expected) + " points of \"" + points.name +
                                                  "\" are never read.");
  }
  checkDigits(points, taken, findings);
  checkFinite(points, valuesOf(taken), findings);
}

void checkSlopes(const PointText& points, CalibrationFindings& findings) {
  const std::vector<float> values = valuesOf(takenOf(points));
  if (values.size() < kPointsPerRow) return;
  if (values[3] == 0.0F) {
    findings.doubtful(points.offset + 3 * kFloatCharacters,
                      "The fourth point is 0, so no slopes are computed for this lens.");
    return;
  }
  std::size_t count = 0;
  std::size_t first = 0;
  for (std::size_t at = 0; at + kPointsPerRow <= values.size(); at += kPointsPerRow) {
    if (values[at] != values[at + 3]) continue;
    if (count == 0) first = at;
    ++count;
  }
  if (count == 0) return;
  const std::size_t row = first / kPointsPerRow;
  findings.wrong(points.offset + first * kFloatCharacters,
                 "The slopes of " + std::to_string(count) +
                     " rows divide by zero, because their first and fourth point are equal; the first is that of " +
                     std::to_string(row % kRowsPerRange) + " degrees in the " +
                     (row < kRowsPerRange ? "low" : "middle") + " range.");
}

}  // namespace keocam::cli
