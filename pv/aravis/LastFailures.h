// Why devices could not be connected to or streamed from: kept for those that see only that it failed.
#pragma once

#include <string>

#include "PvResult.h"

namespace keocam {

/// Keeps `result` as the outcome of the latest attempt for the device at `address`; a success forgets the failure of
/// before. Beyond 256 devices the one noted longest ago is forgotten. Any thread.
void noteOutcome(const std::string& address, const PvResult& result);

/// The failure noted last for the device at `address`; Ok if there is none. Any thread.
PvResult notedFailure(const std::string& address);

}  // namespace keocam
