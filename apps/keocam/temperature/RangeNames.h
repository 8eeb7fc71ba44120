// The core's temperature ranges by their names, and which of them a core is in.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "serial/CameraSerialSettings.h"

namespace keocam::cli {

/// "low", "middle" or "high".
std::string rangeName(RangeModes range);

/// The range of this name.
std::optional<RangeModes> findRange(const std::string& name);

/// All three names, in the order of the ranges.
std::vector<std::string> rangeNames();

/// The same in a sentence: "low, middle, high".
std::string rangeNamesText();

/// The range that low gain stands for, by what a person says: MiddleRange unless it is HighRange.
RangeModes lowGainRange(const std::optional<RangeModes>& said);

/// What a person says of the range against what the core's gain says, which cannot tell the middle from the high range.
struct RangeQuestion {
  std::optional<RangeModes> said;
  bool low_by_gain;
  bool lens_has_high;  ///< of the calibration's lens
};

/// The range, MiddleRange where nothing decides. Throws CommandFailure (Failure) for a contradiction, with what to do.
RangeModes rangeIn(const RangeQuestion& question);

/// Whether nothing but a guess decides: the high range is possible too.
bool isGuessed(const RangeQuestion& question);

}  // namespace keocam::cli
