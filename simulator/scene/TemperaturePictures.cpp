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
    : scene_(settings, sensor), sensor_(sensor) {
  rise_kelvin_.reserve(std::size_t{sensor.width} * sensor.height);
  for (uint32_t y = 0; y < sensor.height; ++y) {
    for (uint32_t x = 0; x < sensor.width; ++x) {
      // Whatever it is rounded to, it must lie in the table.
      rise_kelvin_.push_back(std::max(0.0, scene_.celsiusWhenHot(x, y) - scene_.lowestCelsius()));
    }
  }
}

void TemperaturePictures::render(ImageSize window, uint64_t frame, const CoreResponse& core,
                                 std::vector<uint16_t>& picture) const {
  const std::lock_guard<std::mutex> lock(mutex_);
  if (!core_ || !(*core_ == core)) {
    table_ = tableFor(core);
    core_ = core;
    still_.resize(scene_.still() ? std::size_t{sensor_.width} * sensor_.height : 0);
    if (scene_.still()) renderRows(sensor_, 1.0, still_);
  }
  if (!scene_.still()) {
    renderRows(window, scene_.heatAt(frame), picture);
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
  const auto steps = static_cast<std::size_t>(std::max(1.0, std::ceil(span_kelvin / kStep_kelvin)));
  const auto part = [steps](std::size_t step) { return static_cast<double>(step) / static_cast<double>(steps); };
  ValueTable table{span_kelvin > 0 ? static_cast<double>(steps) / span_kelvin : 0.0, {}};
  table.halves_up.reserve(steps + 1);
  for (std::size_t step = 0; step <= steps; ++step) {
    const double counts = response.countsFor(scene_.lowestCelsius() + span_kelvin * part(step));
    table.halves_up.push_back(static_cast<float>(std::clamp(counts, 0.0, kLargestCount) + 0.5));
  }
  return table;
}

void TemperaturePictures::renderRows(ImageSize window, double heat, std::vector<uint16_t>& picture) const {
  const float* const counts = table_.halves_up.data();
  const auto last = static_cast<uint32_t>(table_.halves_up.size() - 2);
  const double steps_per_kelvin = heat * table_.steps_per_kelvin;
  for (std::size_t y = 0; y < window.height; ++y) {
    const double* const rise_kelvin = rise_kelvin_.data() + y * sensor_.width;
    uint16_t* const out = picture.data() + y * window.width;
    for (std::size_t x = 0; x < window.width; ++x) {
      const double at = rise_kelvin[x] * steps_per_kelvin;
      const uint32_t step = std::min(static_cast<uint32_t>(at), last);
      const double below = counts[step];
      out[x] = static_cast<uint16_t>(below + (counts[step + 1] - below) * (at - step));
    }
  }
}

}  // namespace simulator
