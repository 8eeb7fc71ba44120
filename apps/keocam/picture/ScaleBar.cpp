#include "apps/keocam/picture/ScaleBar.h"

#include <algorithm>
#include <cmath>

#include "apps/keocam/picture/BitmapFont.h"

namespace keocam::cli {
namespace {

constexpr Rgb kLabelInk{225, 225, 230};
constexpr std::size_t kBarWidth = 24;
constexpr std::size_t kTickWidth = 8;
constexpr std::size_t kTickHeight = 2;
constexpr std::size_t kGap = 6;
constexpr std::size_t kLabelScale = 2;
constexpr std::size_t kTextHeight = kGlyphHeight * kLabelScale;
constexpr std::size_t kLeastTickDistance = 3 * kTextHeight;

// The distance of a place on the scale from the top of a bar.
std::size_t rowOf(double part, std::size_t height) {
  return height - 1 - static_cast<std::size_t>(std::lround(part * static_cast<double>(height - 1)));
}

void drawGradient(RgbImage& image, std::size_t x, std::size_t y, std::size_t height, const Palette& palette) {
  for (std::size_t row = 0; row < height; ++row) {
    const std::size_t from_bottom = height - 1 - row;
    image.fill(x, y + row, kBarWidth, 1, palette[from_bottom * (palette.size() - 1) / (height - 1)]);
  }
}

void drawTick(RgbImage& image, std::size_t x, std::size_t y, std::size_t height, const ScaleTick& tick) {
  const std::size_t tick_row = std::min(rowOf(tick.part, height), height - kTickHeight);
  image.fill(x, y + tick_row, kTickWidth, kTickHeight, kLabelInk);
  // The number is centred on its tick, but never beyond the bar's ends.
  const std::size_t half = kTextHeight / 2;
  const std::size_t text_row = std::clamp(tick_row + kTickHeight / 2, half, height - half) - half;
  drawText(image, x + kTickWidth + kGap, y + text_row, tick.label, kLabelScale, kLabelInk);
}

}  // namespace

std::size_t scaleBarWidth() { return kBarWidth + kTickWidth + kGap + textWidth("-40.05", kLabelScale); }

std::size_t mostTicks(std::size_t height) { return std::max<std::size_t>(2, height / kLeastTickDistance); }

void drawScaleBar(RgbImage& image, std::size_t x, std::size_t y, std::size_t height, const ColourScale& scale) {
  drawGradient(image, x, y, height, *scale.palette);
  for (const ScaleTick& tick : scale.ticks) drawTick(image, x + kBarWidth, y, height, tick);
}

}  // namespace keocam::cli
