// The bar beside a thermal picture that tells which colour stands for how many raw counts.
#pragma once

#include <cstddef>

#include "apps/keocam/picture/RawSpan.h"
#include "apps/keocam/picture/RgbImage.h"

namespace keocam::cli {

/// The height below which the bar's numbers would crowd each other.
inline constexpr std::size_t kLeastScaleBarHeight = 120;

/// The pixels that the bar with its ticks and numbers is wide.
std::size_t scaleBarWidth();

/// Draws the palette from the span's low end at the bottom to its high end at the top, `height` pixels high with its
/// upper left corner at (x, y), and to its right a tick and a number for each round value.
void drawScaleBar(RgbImage& image, std::size_t x, std::size_t y, std::size_t height, const RawSpan& span);

}  // namespace keocam::cli
