// The parts of the picture that a person names, and where they lie in a picture of some size.
#pragma once

#include <string>
#include <vector>

#include "measurement/RegionSpans.h"
#include "measurement/RegionText.h"

namespace keocam::cli {

/// Throws CommandFailure (Usage) that tells every argument that is no region, and every name given twice. A region
/// without a name is called by its text.
std::vector<NamedRegion> regionsIn(const std::vector<std::string>& arguments);

/// A region on the pixels of a picture.
struct PlacedRegion {
  NamedRegion named;
  RegionSpans spans;
  bool cut_off;  ///< a part of it lies outside
};

/// Places regions; without any, the whole picture and the pixel at its centre. Throws CommandFailure (Failure) for one
/// that lies wholly outside.
std::vector<PlacedRegion> placed(const std::vector<NamedRegion>& regions, int width, int height);

}  // namespace keocam::cli
