// The pixels of a line in order. Private to this folder.
#pragma once

#include <vector>

#include "measurement/Region.h"

namespace keocam {

/// Those within an image of this size, from the line's first end to its second. It takes no more steps than the image
/// is wide or high, however long the line.
std::vector<Pixel> linePixels(const Line& line, int width, int height);

}  // namespace keocam
