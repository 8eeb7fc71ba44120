// Which lens a name means.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "apps/keocam/calibration/LensSummary.h"

namespace keocam::cli {

/// Index of the first lens of that very name, or else of the first whose name is that but for blanks at its end. Throws
/// CommandFailure (Failure) for an unknown one, with a near one and all there are.
std::size_t lensNamed(const std::string& name, const std::vector<LensSummary>& lenses);

}  // namespace keocam::cli
