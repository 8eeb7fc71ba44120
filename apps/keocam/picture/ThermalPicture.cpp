#include "apps/keocam/picture/ThermalPicture.h"

#include <algorithm>

#include "apps/keocam/picture/BitmapFont.h"
#include "apps/keocam/picture/Palette.h"
#include "apps/keocam/picture/RawSpan.h"
#include "apps/keocam/picture/ScaleBar.h"

namespace keocam::cli {
namespace {

constexpr Rgb kBackground{18, 18, 22};
constexpr Rgb kInk{225, 225, 230};
constexpr std::size_t kNarrow = 400;
constexpr std::size_t kMargin = 12;
constexpr std::size_t kTextScale = 2;

void drawFrame(RgbImage& picture, const PictureLayout& layout, const RawImage& image, const RawSpan& span) {
  const Palette& palette = thermalPalette();
  const std::size_t size = layout.enlargement;
  for (std::size_t y = 0; y < image.height; ++y) {
    for (std::size_t x = 0; x < image.width; ++x) {
      const Rgb colour = palette[stepOf(image.counts[y * image.width + x], span, palette.size())];
      picture.fill(layout.frame_x + x * size, layout.frame_y + y * size, size, size, colour);
    }
  }
}

std::string captionOf(const RawImage& image, const std::string& title, std::size_t available_width) {
  const std::string caption =
      "raw counts  " + title + "  " + std::to_string(image.width) + " x " + std::to_string(image.height);
  const std::size_t fits = available_width / (kGlyphAdvance * kTextScale);
  return caption.substr(0, fits);
}

}  // namespace

PictureLayout layoutOf(std::size_t frame_width, std::size_t frame_height) {
  PictureLayout layout{};
  layout.enlargement = frame_width < kNarrow ? 2 : 1;
  const std::size_t shown_width = frame_width * layout.enlargement;
  const std::size_t shown_height = frame_height * layout.enlargement;
  layout.frame_x = kMargin;
  layout.frame_y = kMargin;
  layout.bar_x = layout.frame_x + shown_width + kMargin;
  layout.bar_y = kMargin;
  layout.bar_height = std::max(shown_height, kLeastScaleBarHeight);
  layout.caption_x = kMargin;
  layout.caption_y = kMargin + layout.bar_height + kMargin;
  layout.width = layout.bar_x + scaleBarWidth() + kMargin;
  layout.height = layout.caption_y + kGlyphHeight * kTextScale + kMargin;
  return layout;
}

RgbImage thermalPicture(const RawImage& image, const std::string& title) {
  const PictureLayout layout = layoutOf(image.width, image.height);
  const RawSpan span = spanOf(image.counts);
  RgbImage picture(layout.width, layout.height, kBackground);
  drawFrame(picture, layout, image, span);
  drawScaleBar(picture, layout.bar_x, layout.bar_y, layout.bar_height, span);
  const std::string caption = captionOf(image, title, layout.width - 2 * kMargin);
  drawText(picture, layout.caption_x, layout.caption_y, caption, kTextScale, kInk);
  return picture;
}

}  // namespace keocam::cli
