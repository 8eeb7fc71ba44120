// The colours of a thermal picture, from cold to hot.
#pragma once

#include <array>
#include <cstddef>

#include "apps/keocam/picture/RgbImage.h"

namespace keocam::cli {

inline constexpr std::size_t kPaletteSize = 256;

using Palette = std::array<Rgb, kPaletteSize>;

/// Dark violet, red, orange, yellow, white. The lightness grows evenly, so that equal steps of heat look like equal
/// steps, also printed in grey or to an eye that tells red from green badly.
const Palette& thermalPalette();

/// CIE lightness L*, 0 for black to 100 for white.
double lightnessOf(const Rgb& colour);

}  // namespace keocam::cli
