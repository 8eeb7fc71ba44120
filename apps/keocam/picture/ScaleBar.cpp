#include "apps/keocam/picture/ScaleBar.h"

#include <algorithm>
#include <string>

#include "apps/keocam/picture/BitmapFont.h"
#include "apps/keocam/picture/Palette.h"

namespace keocam::cli {
namespace {

constexpr Rgb kInk{225, 225, 230};
constexpr std::size_t kBarWidth = 24;
constexpr std::size_t kTickWidth = 8;
constexpr std::size_t kTickHeight = 2;
constexpr std::size_t kGap = 6;
constexpr std::size_t kTextScale = 2;
constexpr std::size_t kTextHeight = kGlyphHeight * kTextScale;
constexpr std::size_t kLeastTickDistance = 3 * kTextHeight;

// The distance of `counts` from the top of a bar.
std::size_t rowOf(uint16_t counts, const RawSpan& span, std::size_t height) {
  return height - 1 - stepOf(counts, span, height);
}

void drawGradient(RgbImage& image, std::size_t x, std::size_t y, std::size_t height) {
  const Palette& palette = thermalPalette();
  for (std::size_t row = 0; row < height; ++row) {
    const std::size_t from_bottom = height - 1 - row;
    image.fill(x, y + row, kBarWidth, 1, palette[from_bottom * (palette.size() - 1) / (height - 1)]);
  }
}

void drawTick(RgbImage& image, std::size_t x, std::size_t y, std::size_t height, std::size_t row, uint16_t counts) {
  const std::size_t tick_row = std::min(row, height - kTickHeight);
  image.fill(x, y + tick_row, kTickWidth, kTickHeight, kInk);
  // The number is centred on its tick, but never beyond the bar's ends.
  const std::size_t half = kTextHeight / 2;
  const std::size_t text_row = std::clamp(tick_row + kTickHeight / 2, half, height - half) - half;
  drawText(image, x + kTickWidth + kGap, y + text_row, std::to_string(counts), kTextScale, kInk);
}

}  // namespace

std::size_t scaleBarWidth() { return kBarWidth + kTickWidth + kGap + textWidth("65535", kTextScale); }

void drawScaleBar(RgbImage& image, std::size_t x, std::size_t y, std::size_t height, const RawSpan& span) {
  drawGradient(image, x, y, height);
  const std::size_t most_ticks = std::max<std::size_t>(2, height / kLeastTickDistance);
  for (const uint16_t tick : ticksOf(span, most_ticks)) {
    drawTick(image, x + kBarWidth, y, height, rowOf(tick, span, height), tick);
  }
}

}  // namespace keocam::cli
