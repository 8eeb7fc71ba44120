// The options for the colours of a snapshot.
#pragma once

#include <string>
#include <vector>

#include "apps/keocam/temperature/Snapshot.h"

namespace keocam::cli {

/// `palette` is a name or empty, `span` empty or two numbers. Throws CommandFailure (Usage) for others, and for any in
/// a format without colours.
SnapshotColours coloursFor(const SnapshotFormat& format, const std::string& palette,
                           const std::vector<std::string>& span);

}  // namespace keocam::cli
