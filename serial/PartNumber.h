// What a core's part number says of it. Nothing here reaches a port.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "serial/CameraSerialSettings.h"

namespace keocam {

using Resolution = CameraSerialSettings::Resolution;

/// A size of sensor: the code that stands for it in a part number, which is not always the width of its pictures, and
/// the part numbers that stand for it where a core's own does not.
struct ResolutionRow {
  Resolution resolution;
  int code;
  int width;
  int height;
  std::string_view fast;
  std::string_view slow;
};

/// The row of a resolution, or null for a value that is none of them.
const ResolutionRow* resolutionRow(Resolution resolution);

/// The row of a part number, or null for an unknown one. Throws std::out_of_range below 5 characters.
const ResolutionRow* resolutionOf(const std::string& part_number);

/// The core delivers fast video. Throws std::out_of_range below 11 characters.
bool isFast(const std::string& part_number);

/// Where the letter is that isRadiometric reads.
constexpr std::size_t kRadiometryLetter = 11;
/// The core measures temperatures. Throws std::out_of_range below 12 characters.
bool isRadiometric(const std::string& part_number);

/// The part number in what the core answers, which fills up with '^'; a zero byte ends it too.
std::string partNumberIn(std::string_view answer);

/// What a part number of the alternative form, which tells a model in the resolution's place, comes to.
struct KnownModel {
  Resolution resolution;
  bool fast;
};
/// Empty for a part number of another form, or of an unknown model.
std::optional<KnownModel> knownModelOf(std::string_view part_number);

}  // namespace keocam
