// What came of a change of lenses, and what to do next, in words.
#pragma once

#include <string>

#include "calibration/LensChange.h"

namespace keocam::cli {

/// What a person is to know before it begins.
std::string beginText(const std::string& camera, const std::string& lens, uint32_t table_bytes,
                      Verification verification);

/// For a change that is Complete.
std::string completeText(const std::string& lens, const LensChange& change);

/// For one that is Cancelled or Failed: why, how each table stands, and what to do next; a line each.
std::string incompleteText(const std::string& lens, const LensChange& change);

}  // namespace keocam::cli
