// The formats of snapshots, each as the bytes of a file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "apps/keocam/temperature/Snapshot.h"

namespace keocam::cli {

std::vector<uint8_t> encodeTiffOf(const Snapshot& snapshot);
std::vector<uint8_t> encodePngOf(const Snapshot& snapshot);
std::vector<uint8_t> encodeCsvOf(const Snapshot& snapshot);
std::vector<uint8_t> encodeRawOf(const Snapshot& snapshot);

/// What the tag ImageDescription says: lines of "name=value" in ASCII, the first ones as ImageJ reads them.
std::string imageDescription(const Snapshot& snapshot);

}  // namespace keocam::cli
