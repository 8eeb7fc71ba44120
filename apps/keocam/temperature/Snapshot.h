// One frame as the bytes of a file, in the format that the file's name asks for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/keocam/picture/Palette.h"
#include "apps/keocam/picture/TemperatureSpan.h"
#include "apps/keocam/temperature/Conditions.h"
#include "apps/keocam/temperature/DisplayUnit.h"
#include "apps/keocam/temperature/TemperatureFrame.h"

namespace keocam::cli {

/// How a picture for people is coloured.
struct SnapshotColours {
  const Palette* palette = nullptr;
  std::optional<TemperatureSpan> span;  ///< in the unit of the snapshot; without: the picture's own
};

struct Snapshot {
  const TemperatureFrame& frame;
  const Conditions& conditions;
  const DisplayUnit& unit;
  SnapshotColours colours;
};

/// A row per format.
struct SnapshotFormat {
  const char* extensions[2];  ///< the second may be null
  const char* meaning;        ///< a line for a person
  bool coloured;
  std::vector<uint8_t> (*encode)(const Snapshot& snapshot);
};

/// The format of a file of this name. Throws CommandFailure (Usage) where the extension tells none.
const SnapshotFormat& formatOf(const std::string& path);

/// For help: the extensions and what they mean, a line each.
std::string snapshotFormats();

}  // namespace keocam::cli
