#include "apps/keocam/picture/TemperaturePicture.h"

#include <cmath>

#include "apps/keocam/picture/ScaleBar.h"

namespace keocam::cli {
namespace {

constexpr Rgb kNoTemperature{0, 160, 160};

}  // namespace

RgbImage temperaturePicture(const TemperatureImage<float>& image, const TemperatureSpan& span, const Palette& palette,
                            const std::string& caption) {
  PictureContent content{
      static_cast<std::size_t>(image.width()), static_cast<std::size_t>(image.height()), {}, {}, caption};
  content.pixels.reserve(content.width * content.height);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const double temperature = static_cast<double>(image.at(x, y));
      content.pixels.push_back(std::isnan(temperature) ? kNoTemperature
                                                       : palette[stepOf(temperature, span, palette.size())]);
    }
  }
  content.scale = {&palette, ticksOf(span, mostTicks(layoutOf(content.width, content.height).bar_height))};
  return composed(content);
}

}  // namespace keocam::cli
