// The bar beside a thermal picture that tells which colour stands for what.
#pragma once

#include <cstddef>

#include "apps/keocam/picture/ColourScale.h"
#include "apps/keocam/picture/RgbImage.h"

namespace keocam::cli {

/// The height below which the bar's numbers would crowd each other.
inline constexpr std::size_t kLeastScaleBarHeight = 120;

/// The pixels that the bar with its ticks and numbers of up to six characters is wide.
std::size_t scaleBarWidth();

/// How many ticks a bar of this height has room for, at least 2.
std::size_t mostTicks(std::size_t height);

/// Draws the palette from its coldest colour at the bottom to its hottest at the top, `height` pixels high with its
/// upper left corner at (x, y), and to its right the ticks with their labels.
void drawScaleBar(RgbImage& image, std::size_t x, std::size_t y, std::size_t height, const ColourScale& scale);

}  // namespace keocam::cli
