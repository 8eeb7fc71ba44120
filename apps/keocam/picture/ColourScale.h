// What the colours of a picture stand for.
#pragma once

#include <string>
#include <vector>

#include "apps/keocam/picture/Palette.h"

namespace keocam::cli {

/// A labelled place on the way from the coldest colour, 0, to the hottest, 1.
struct ScaleTick {
  double part;
  std::string label;
};

struct ColourScale {
  const Palette* palette;
  std::vector<ScaleTick> ticks;  ///< ascending
};

}  // namespace keocam::cli
