// The colours of a thermal picture, from cold to hot.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "apps/keocam/picture/RgbImage.h"

namespace keocam::cli {

inline constexpr std::size_t kPaletteSize = 256;

using Palette = std::array<Rgb, kPaletteSize>;

/// Dark violet, red, orange, yellow, white. The lightness grows evenly, so that equal steps of heat look like equal
/// steps, also printed in grey or to an eye that tells red from green badly.
const Palette& thermalPalette();

/// By its name: "thermal", the one above, or "white-hot" or "black-hot", which are grey; null if there is none.
const Palette* findPalette(std::string_view name);

/// The names.
std::vector<std::string> paletteNames();

/// CIE lightness L*, 0 for black to 100 for white.
double lightnessOf(const Rgb& colour);

}  // namespace keocam::cli
