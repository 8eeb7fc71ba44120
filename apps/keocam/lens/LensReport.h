// Lenses of a calibration, and whose tables a core holds, as text and as JSON.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "apps/keocam/calibration/LensSummary.h"
#include "apps/keocam/lens/CameraCalibration.h"
#include "apps/keocam/lens/HeldLens.h"

namespace keocam::cli {

/// A heading, and a line per lens, within `width` columns.
std::string lensTable(const std::vector<LensSummary>& lenses, std::size_t width);

/// An object with the camera and an array of lenses, whose names are as the calibration has them, blanks included.
std::string lensJson(const CameraCalibration& calibration);

/// What stands against one lens holding: erased, of an unknown lens, or of two different ones; with what to do. Only
/// for one without a lens.
std::string noHeldLensText(const HeldTables& held, const HeldLens& found, const std::vector<LensSummary>& lenses);

/// An object with the lens, and the lenses of the two tables; null for none.
std::string heldLensJson(const std::string& camera, const HeldLens& found, const std::vector<LensSummary>& lenses);

}  // namespace keocam::cli
