#include "apps/keocam/temperature/RangeNames.h"

#include "apps/keocam/CommandFailure.h"
#include "radiometry/RangeTable.h"

namespace keocam::cli {
namespace {

constexpr RangeModes kRanges[] = {CameraSerialSettings::LowRange, CameraSerialSettings::MiddleRange,
                                  CameraSerialSettings::HighRange};

}  // namespace

std::string rangeName(RangeModes range) { return rangeRow(range).name; }

std::optional<RangeModes> findRange(const std::string& name) {
  for (const RangeModes range : kRanges) {
    if (name == rangeName(range)) return range;
  }
  return std::nullopt;
}

std::vector<std::string> rangeNames() {
  std::vector<std::string> names;
  for (const RangeModes range : kRanges) names.push_back(rangeName(range));
  return names;
}

std::string rangeNamesText() {
  std::string text;
  for (const std::string& name : rangeNames()) text += (text.empty() ? "" : ", ") + name;
  return text;
}

RangeModes lowGainRange(const std::optional<RangeModes>& said) {
  return said == CameraSerialSettings::HighRange ? CameraSerialSettings::HighRange : CameraSerialSettings::MiddleRange;
}

RangeModes rangeIn(const RangeQuestion& question) {
  const RangeModes by_gain = question.low_by_gain ? CameraSerialSettings::LowRange : CameraSerialSettings::MiddleRange;
  if (!question.said) return by_gain;
  const RangeModes said = *question.said;
  if ((said == CameraSerialSettings::LowRange) != question.low_by_gain) {
    throw CommandFailure(ExitStatus::Failure,
                         std::string("The core's gain is that of the ") +
                             (question.low_by_gain ? "low range" : "middle and high range") + ", not that of the " +
                             rangeName(said) + " range. \"keocam range set " + rangeName(said) +
                             "\" changes the range; leave --range out to measure in the present one.");
  }
  if (said == CameraSerialSettings::HighRange && !question.lens_has_high) {
    throw CommandFailure(ExitStatus::Failure,
                         "The high range needs a lens that is calibrated for it: name the folder of calibrations with "
                         "--calibrations, and see \"keocam lens list\" for the lenses that have it.");
  }
  return said;
}

bool isGuessed(const RangeQuestion& question) {
  return !question.said && !question.low_by_gain && question.lens_has_high;
}

}  // namespace keocam::cli
