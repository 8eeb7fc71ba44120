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

void drawFrame(RgbImage& picture, const PictureLayout& layout, const PictureContent& content) {
  const std::size_t size = layout.enlargement;
  for (std::size_t y = 0; y < content.height; ++y) {
    for (std::size_t x = 0; x < content.width; ++x) {
      picture.fill(layout.frame_x + x * size, layout.frame_y + y * size, size, size,
                   content.pixels[y * content.width + x]);
    }
  }
}

ColourScale scaleOf(const RawSpan& span, std::size_t most_ticks) {
  ColourScale scale{&thermalPalette(), {}};
  const double width = span.high_counts - span.low_counts;
  for (const uint16_t tick : ticksOf(span, most_ticks)) {
    scale.ticks.push_back({(tick - span.low_counts) / width, std::to_string(tick)});
  }
  return scale;
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

RgbImage composed(const PictureContent& content) {
  const PictureLayout layout = layoutOf(content.width, content.height);
  RgbImage picture(layout.width, layout.height, kBackground);
  drawFrame(picture, layout, content);
  drawScaleBar(picture, layout.bar_x, layout.bar_y, layout.bar_height, content.scale);
  const std::size_t fits = (layout.width - 2 * kMargin) / (kGlyphAdvance * kTextScale);
  drawText(picture, layout.caption_x, layout.caption_y, firstGlyphs(content.caption, fits), kTextScale, kInk);
  return picture;
}

RgbImage thermalPicture(const RawImage& image, const std::string& title) {
  const Palette& palette = thermalPalette();
  const RawSpan span = spanOf(image.counts);
  PictureContent content{image.width, image.height, {}, {}, {}};
  content.pixels.reserve(image.counts.size());
  for (const uint16_t counts : image.counts) content.pixels.push_back(palette[stepOf(counts, span, palette.size())]);
  content.scale = scaleOf(span, mostTicks(layoutOf(image.width, image.height).bar_height));
  content.caption = "raw counts  " + title + "  " + std::to_string(image.width) + " x " + std::to_string(image.height);
  return composed(content);
}

}  // namespace keocam::cli
