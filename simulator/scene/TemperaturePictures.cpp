#include "simulator/scene/TemperaturePictures.h"

#include <algorithm>
#include <cmath>

#include "simulator/scene/PixelResponse.h"

namespace simulator {
namespace {

/// Between two steps the response is taken for straight, which in so short a step it is to a thousandth of a count.
constexpr double kStep_kelvin = 0.05;

}  // namespace

TemperaturePictures::TemperaturePictures(const TemperatureSceneSettings& settings, ImageSize sensor)
    : scene_(settings, sensor), sensor_(sensor) {}

void TemperaturePictures::render(ImageSize window, uint64_t frame, const CoreResponse& core,
                                 std::vector<uint16_t>& picture) const {
  const std::lock_guard<std::mutex> lock(mutex_);
  if (!core_ || !(*core_ == core)) {
    table_ = tableFor(core);
    core_ = core;
    still_.resize(scene_.still() ? std::size_t{sensor_.width} * sensor_.height : 0);
    if (scene_.still()) renderRows(sensor_, frame, table_, still_);
  }
  if (!scene_.still()) {
    renderRows(window, frame, table_, picture);
    return;
  }
  for (std::size_t y = 0; y < window.height; ++y) {
    std::copy_n(still_.data() + y * sensor_.width, window.width, picture.data() + y * window.width);
  }
}

double TemperaturePictures::countsPerSensorCount(const CoreResponse& core) const {
  return PixelResponse(scene_.settings(), core)
      .countsPerSensorCount((scene_.lowestCelsius() + scene_.highestCelsius()) / 2);
}

TemperaturePictures::ValueTable TemperaturePictures::tableFor(const CoreResponse& core) const {
  const PixelResponse response(scene_.settings(), core);
  const double span_kelvin = scene_.highestCelsius() - scene_.lowestCelsius();
  const double steps = std::max(1.0, std::ceil(span_kelvin / kStep_kelvin));
  ValueTable table{scene_.lowestCelsius(), span_kelvin > 0 ? steps / span_kelvin : 0.0, {}};
  table.counts.reserve(static_cast<std::size_t>(steps) + 1);
  for (double step = 0; step <= steps; ++step) {
    const double celsius = scene_.lowestCelsius() + span_kelvin * step / steps;
    table.counts.push_back(static_cast<float>(response.countsFor(celsius)));
  }
  return table;
}

uint16_t TemperaturePictures::ValueTable::pixelFor(double celsius) const {
  const double at = std::max(0.0, (celsius - first_celsius) * steps_per_kelvin);
  const std::size_t step = std::min(static_cast<std::size_t>(at), counts.size() - 2);
  const double below = counts[step];
  return pixelOf(below + (counts[step + 1] - below) * (at - static_cast<double>(step)));
}

void TemperaturePictures::renderRows(ImageSize window, uint64_t frame, const ValueTable& table,
                                     std::vector<uint16_t>& picture) const {
  uint16_t* out = picture.data();
  for (uint32_t y = 0; y < window.height; ++y) {
    for (uint32_t x = 0; x < window.width; ++x) *out++ = table.pixelFor(scene_.celsiusAt(x, y, frame));
  }
}

}  // namespace simulator
