#include "simulator/scene/SceneTable.h"

#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string>

namespace simulator {
namespace {

using Settings = TemperatureSceneSettings;

constexpr uint32_t bit(SceneShape shape) { return 1U << static_cast<uint32_t>(shape); }
constexpr uint32_t kUniform = bit(SceneShape::Uniform);
constexpr uint32_t kHotSpot = bit(SceneShape::HotSpot);
constexpr uint32_t kPlates = bit(SceneShape::Blackbodies);
constexpr uint32_t kAll = (1U << kSceneShapes) - 1;
constexpr double kColdest = -40;
constexpr double kHottest = 1500;

Settings startOf(SceneShape shape, double low_celsius, double high_celsius) {
  Settings settings;
  settings.shape = shape;
  settings.low_celsius = low_celsius;
  settings.high_celsius = high_celsius;
  return settings;
}

std::string boundsOf(const SceneKey& key) {
  std::ostringstream text;
  text << key.minimum << " to " << key.maximum;
  if (!key.unit.empty()) text << ' ' << key.unit;
  return text.str();
}

}  // namespace

const std::array<SceneRow, kSceneShapes>& sceneRows() {
  static constexpr std::array<SceneRow, kSceneShapes> kRows{{
      {SceneShape::Uniform, "uniform", "one temperature", [] { return startOf(SceneShape::Uniform, 30, 30); }},
      {SceneShape::Gradient, "gradient", "from the top left to the bottom right corner",
       [] { return startOf(SceneShape::Gradient, 0, 100); }},
      {SceneShape::HotSpot, "hot-spot", "such as a pump with a hot bearing",
       [] { return startOf(SceneShape::HotSpot, 25, 90); }},
      {SceneShape::Blackbodies, "blackbodies", "a row of plates, from left to right",
       [] { return startOf(SceneShape::Blackbodies, 20, 110); }},
  }};
  return kRows;
}

const std::array<SceneKey, kSceneKeys>& sceneKeys() {
  static constexpr std::array<SceneKey, kSceneKeys> kKeys{{
      {"celsius", "C", "the temperature", kUniform, kColdest, kHottest, false,
       [](Settings& s) -> double& { return s.low_celsius; }},
      {"low", "C", "the lowest temperature", kAll & ~kUniform, kColdest, kHottest, false,
       [](Settings& s) -> double& { return s.low_celsius; }},
      {"high", "C", "the highest temperature", kAll & ~kUniform, kColdest, kHottest, false,
       [](Settings& s) -> double& { return s.high_celsius; }},
      {"background", "C", "around the plates", kPlates, kColdest, kHottest, false,
       [](Settings& s) -> double& { return s.background_celsius; }},
      {"plates", "", "how many", kPlates, 1, 16, true, [](Settings& s) -> double& { return s.plates; }},
      {"x", "", "centre, in parts of the width", kHotSpot, 0, 1, false, [](Settings& s) -> double& { return s.x; }},
      {"y", "", "and of its height", kHotSpot, 0, 1, false, [](Settings& s) -> double& { return s.y; }},
      {"size", "", "diameter, in parts of the height", kHotSpot, 0.01, 1, false,
       [](Settings& s) -> double& { return s.size; }},
      {"period", "frames", "to heat and cool; 0: it stays hot", kHotSpot, 0, 65535, false,
       [](Settings& s) -> double& { return s.period_frames; }},
      {"emissivity", "", "of the objects", kAll, 0.1, 1, false,
       [](Settings& s) -> double& { return s.surroundings.emissivity; }},
      {"reflected", "C", "of what the objects mirror", kAll, kColdest, 600, false,
       [](Settings& s) -> double& { return s.surroundings.reflected_celsius; }},
      {"atmosphere", "C", "of the air", kAll, kColdest, 120, false,
       [](Settings& s) -> double& { return s.surroundings.atmospheric_celsius; }},
      {"distance", "m", "to the objects", kAll, 0, 10000, false,
       [](Settings& s) -> double& { return s.surroundings.distance_m; }},
      {"humidity", "", "of the air, relative", kAll, 0, 1, false,
       [](Settings& s) -> double& { return s.surroundings.humidity; }},
      {"optics", "", "transmission of a window in front", kAll, 0.1, 1, false,
       [](Settings& s) -> double& { return s.surroundings.optics_transmission; }},
  }};
  return kKeys;
}

void checkScene(const TemperatureSceneSettings& settings) {
  const auto shape = static_cast<std::size_t>(settings.shape);
  if (shape >= kSceneShapes) throw std::invalid_argument("there is no scene " + std::to_string(shape));
  Settings checked = settings;
  const std::string scene = std::string(sceneRows()[shape].name) + ": ";
  for (const SceneKey& key : sceneKeys()) {
    if (!key.isOf(settings.shape)) continue;
    const double value = key.of(checked);
    const bool in_bounds = value >= key.minimum && value <= key.maximum;
    if (in_bounds && (!key.whole || value == std::floor(value))) continue;
    std::ostringstream text;
    text << scene << key.name << '=' << value << (in_bounds ? " is not a whole number" : " is not in ")
         << (in_bounds ? "" : boundsOf(key));
    throw std::invalid_argument(text.str());
  }
  if (settings.shape != SceneShape::Uniform && settings.low_celsius > settings.high_celsius) {
    std::ostringstream text;
    text << scene << "low=" << settings.low_celsius << " is above high=" << settings.high_celsius;
    throw std::invalid_argument(text.str());
  }
  if (settings.low_gain_range == CalibrationRange::Low) {
    throw std::invalid_argument(scene + "the low gain is for the middle or the high range");
  }
}

}  // namespace simulator
