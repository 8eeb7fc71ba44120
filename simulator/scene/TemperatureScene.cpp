#include "simulator/scene/TemperatureScene.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "simulator/Scene.h"
#include "simulator/calibration/TemperatureCorrection.h"
#include "simulator/scene/SceneTable.h"

namespace simulator {
namespace {

constexpr double kPi = 3.14159265358979323846;
/// A plate's side, in parts of the space that there is for it.
constexpr double kPlatePart = 0.7;

/// A pixel's centre, from the sensor's top left corner.
struct Place {
  double x;
  double y;
  double width;
  double height;
};

using Temperature = double (*)(const TemperatureSceneSettings& scene, const Place& place);

double between(const TemperatureSceneSettings& scene, double part) {
  return scene.low_celsius + (scene.high_celsius - scene.low_celsius) * part;
}

double uniform(const TemperatureSceneSettings& scene, const Place&) { return scene.low_celsius; }

double gradient(const TemperatureSceneSettings& scene, const Place& place) {
  const auto part = [](double at, double length) { return (at - 0.5) / std::max(1.0, length - 1); };
  return between(scene, (part(place.x, place.width) + part(place.y, place.height)) / 2);
}

double hotSpot(const TemperatureSceneSettings& scene, const Place& place) {
  const double radius = scene.size * place.height / 2;
  const double distance = std::hypot(place.x - scene.x * place.width, place.y - scene.y * place.height);
  // Outside it cools down within as much as its radius.
  const double beyond = std::max(0.0, distance / radius - 1);
  return between(scene, std::exp(-2 * beyond * beyond));
}

double blackbodies(const TemperatureSceneSettings& scene, const Place& place) {
  const double space = place.width / scene.plates;
  const double half_side = kPlatePart / 2 * std::min(space, place.height);
  const double plate = std::floor(place.x / space);
  const double dx = place.x - (plate + 0.5) * space;
  const double dy = place.y - place.height / 2;
  if (std::fabs(dx) > half_side || std::fabs(dy) > half_side) return scene.background_celsius;
  return between(scene, plate / std::max(1.0, scene.plates - 1));
}

constexpr std::array<Temperature, kSceneShapes> kTemperatures{uniform, gradient, hotSpot, blackbodies};

}  // namespace

TemperatureScene::TemperatureScene(const TemperatureSceneSettings& settings, ImageSize sensor)
    : settings_(settings), width_(sensor.width), height_(sensor.height) {
  checkScene(settings);
  if (settings.correction == nullptr) return;
  for (const CalibrationRange range : {CalibrationRange::Low, settings.low_gain_range}) {
    settings.correction->checkInverse(range, lowestCelsius(), highestCelsius());
  }
}

double TemperatureScene::celsiusWhenHot(uint32_t x, uint32_t y) const {
  const Temperature temperature = kTemperatures[static_cast<std::size_t>(settings_.shape)];
  return temperature(settings_, {x + 0.5, y + 0.5, width_, height_});
}

double TemperatureScene::heatAt(uint64_t frame) const {
  if (still()) return 1.0;
  return (1 - std::cos(2 * kPi * static_cast<double>(frame) / settings_.period_frames)) / 2;
}

bool TemperatureScene::still() const { return settings_.shape != SceneShape::HotSpot || settings_.period_frames == 0; }

double TemperatureScene::lowestCelsius() const {
  const bool plates = settings_.shape == SceneShape::Blackbodies;
  return plates ? std::min(settings_.low_celsius, settings_.background_celsius) : settings_.low_celsius;
}

double TemperatureScene::highestCelsius() const {
  if (settings_.shape == SceneShape::Uniform) return settings_.low_celsius;
  const bool plates = settings_.shape == SceneShape::Blackbodies;
  return plates ? std::max(settings_.high_celsius, settings_.background_celsius) : settings_.high_celsius;
}

}  // namespace simulator
