#include "simulator/Scene.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <stdexcept>
#include <string>

#include "simulator/scene/TemperaturePictures.h"

namespace simulator {
namespace {

constexpr int kLargestValue = 16383;
constexpr double kPi = 3.14159265358979323846;

/// A soft round spot; places and radius are parts of the sensor's height.
struct Spot {
  double x;
  double y;
  double radius;
  double counts;  ///< at its centre, above or below what lies behind it
};

/// Things that stand in the room, beside those that the seed adds.
constexpr std::array<Spot, 4> kFurniture{
    {{0.26, 0.30, 0.085, 2600}, {1.02, 0.22, 0.050, 3400}, {0.93, 0.74, 0.130, 1500}, {0.20, 0.78, 0.110, -1300}}};
constexpr int kRandomSpots = 7;

/// The moving object: a warm body with a hot core that wanders on a closed curve.
constexpr double kBodyRadius = 0.075;
constexpr double kBodyStretch = 1.35;  // upright
constexpr double kBodyCounts = 3000;
constexpr double kCoreRadius = 0.022;
constexpr double kCoreCounts = 2400;
constexpr double kFramesPerRound = 360;

uint16_t clamped(int value) { return static_cast<uint16_t>(std::min(std::max(value, 0), kLargestValue)); }

double gaussian(double dx, double dy, double radius) {
  return std::exp(-0.5 * (dx * dx + dy * dy) / (radius * radius));
}

/// A room: a warm floor, a cool window wall at the top, and slow undulation between.
double roomCounts(double x, double y) {
  const double slope = 5200.0 + 1500.0 * y + 260.0 * std::sin(2.1 * x + 0.6) * std::cos(1.7 * y);
  const double heater = 900.0 / (1.0 + std::exp(-(y - 0.9) * 40.0));
  return slope + heater;
}

/// A pane with soft edges, colder than the wall around it.
double windowCounts(double x, double y) {
  const auto edge = [](double distance) { return 1.0 / (1.0 + std::exp(-distance * 90.0)); };
  const auto pane = [&](double left, double right) {
    return edge(x - left) * edge(right - x) * edge(y - 0.10) * edge(0.42 - y);
  };
  return -1500.0 * (pane(0.50, 0.66) + pane(0.68, 0.84));
}

std::vector<Spot> spotsOf(const SceneSettings& settings) {
  std::vector<Spot> spots(kFurniture.begin(), kFurniture.end());
  // The generator's raw output is used, as the library's distributions differ between implementations.
  std::mt19937_64 generator(settings.seed);
  const auto part = [&generator] { return static_cast<double>(generator() >> 11) * 0x1.0p-53; };
  const double aspect = static_cast<double>(settings.sensor.width) / settings.sensor.height;
  for (int i = 0; i < kRandomSpots; ++i) {
    const double x = part() * aspect;
    const double y = part();
    const double radius = 0.012 + 0.03 * part();
    spots.push_back({x, y, radius, -700.0 + 2400.0 * part()});
  }
  return spots;
}

uint16_t patternValue(TestPattern pattern, ImageSize sensor, uint32_t x, uint32_t y, uint64_t frame_index) {
  switch (pattern) {
    case TestPattern::GreyHorizontalRamp:
      return static_cast<uint16_t>(x * static_cast<uint32_t>(kLargestValue) / std::max(1U, sensor.width - 1));
    case TestPattern::GreyVerticalRamp:
      return static_cast<uint16_t>(y * static_cast<uint32_t>(kLargestValue) / std::max(1U, sensor.height - 1));
    case TestPattern::GreyDiagonalMoving:
      return static_cast<uint16_t>((x * 16U + y * 16U + frame_index * 16U) & static_cast<uint32_t>(kLargestValue));
    case TestPattern::Off:
      break;
  }
  return 0;
}

}  // namespace

Scene::Scene(const SceneSettings& settings) : settings_(settings) {
  const ImageSize sensor = settings.sensor;
  if (sensor.width == 0 || sensor.height == 0) throw std::invalid_argument("a scene needs a sensor with pixels");
  if (settings.temperatures) {
    temperatures_ = std::make_shared<TemperaturePictures>(*settings.temperatures, sensor);
    return;
  }
  const std::vector<Spot> spots = spotsOf(settings);
  background_.reserve(std::size_t{sensor.width} * sensor.height);
  for (uint32_t row = 0; row < sensor.height; ++row) {
    for (uint32_t column = 0; column < sensor.width; ++column) {
      const double x = static_cast<double>(column) / sensor.height;
      const double y = static_cast<double>(row) / sensor.height;
      double counts = roomCounts(x, y) + windowCounts(x, y);
      for (const Spot& spot : spots) counts += spot.counts * gaussian(x - spot.x, y - spot.y, spot.radius);
      background_.push_back(clamped(static_cast<int>(std::lround(counts))));
    }
  }
  // Twelve equal draws added up are close enough to a normal distribution.
  std::mt19937_64 generator(settings.seed + 1);
  noise_.reserve(background_.size() * 2);
  for (std::size_t i = 0; i < background_.size() * 2; ++i) {
    double sum = -6.0;
    for (int draw = 0; draw < 3; ++draw) {
      const uint64_t bits = generator();
      for (unsigned part = 0; part < 4; ++part) sum += static_cast<double>((bits >> (16 * part)) & 0xFFFF) / 65536.0;
    }
    noise_.push_back(static_cast<int16_t>(std::lround(sum * settings.noise_counts)));
  }
}

double Scene::countsPerSensorCount(const CoreResponse& core) const {
  return temperatures_ ? temperatures_->countsPerSensorCount(core) : 1.0;
}

const TemperatureScene* Scene::temperatures() const { return temperatures_ ? &temperatures_->scene() : nullptr; }

std::vector<uint16_t> Scene::render(uint32_t width, uint32_t height, uint64_t frame_index, TestPattern pattern,
                                    const CoreResponse& core) const {
  const ImageSize sensor = settings_.sensor;
  if (width == 0 || height == 0 || width > sensor.width || height > sensor.height) {
    throw std::invalid_argument("a window of " + std::to_string(width) + "x" + std::to_string(height) +
                                " does not fit a sensor of " + std::to_string(sensor.width) + "x" +
                                std::to_string(sensor.height));
  }
  std::vector<uint16_t> picture(std::size_t{width} * height);
  if (pattern == TestPattern::Off) {
    if (temperatures_) {
      temperatures_->render({width, height}, frame_index, core, picture);
    } else {
      renderScene({width, height}, frame_index, picture);
    }
    return picture;
  }
  std::size_t at = 0;
  for (uint32_t y = 0; y < height; ++y) {
    for (uint32_t x = 0; x < width; ++x) picture[at++] = patternValue(pattern, sensor, x, y, frame_index);
  }
  return picture;
}

void Scene::renderScene(ImageSize window, uint64_t frame_index, std::vector<uint16_t>& picture) const {
  const std::size_t pixels = background_.size();
  // A large step that shares no factor with common sizes: neighbouring frames show unrelated noise.
  const std::size_t offset = static_cast<std::size_t>(frame_index * 7919U * 31U % pixels);
  for (uint32_t y = 0; y < window.height; ++y) {
    const std::size_t row = std::size_t{y} * settings_.sensor.width;
    const uint16_t* background = background_.data() + row;
    const int16_t* noise = noise_.data() + offset + row;
    uint16_t* out = picture.data() + std::size_t{y} * window.width;
    for (uint32_t x = 0; x < window.width; ++x) out[x] = clamped(background[x] + noise[x]);
  }
  addMovingObject(window, frame_index, picture);
}

void Scene::addMovingObject(ImageSize window, uint64_t frame_index, std::vector<uint16_t>& picture) const {
  const double scale = settings_.sensor.height;
  const double angle = 2.0 * kPi * std::fmod(static_cast<double>(frame_index), kFramesPerRound) / kFramesPerRound;
  const double centre_x = (0.5 * settings_.sensor.width / scale + 0.42 * std::sin(angle)) * scale;
  const double centre_y = (0.60 + 0.20 * std::sin(2.0 * angle)) * scale;
  const double reach_x = 4.0 * kBodyRadius * scale;
  const double reach_y = reach_x * kBodyStretch;
  const auto first = [](double at) { return static_cast<uint32_t>(std::max(0.0, std::floor(at))); };
  const auto last = [](double at, uint32_t limit) { return std::min(limit, static_cast<uint32_t>(std::max(0.0, at))); };
  const uint32_t left = first(centre_x - reach_x);
  const uint32_t right = last(centre_x + reach_x, window.width);
  // A Gaussian in two dimensions is a product of two in one, so each row and column needs one exponential.
  const auto profile = [&](double distance, double radius) { return gaussian(distance / scale, 0.0, radius); };
  std::vector<std::array<float, 2>> columns;
  for (uint32_t x = left; x < right; ++x) {
    columns.push_back({static_cast<float>(profile(x - centre_x, kBodyRadius)),
                       static_cast<float>(profile(x - centre_x, kCoreRadius))});
  }
  for (uint32_t y = first(centre_y - reach_y); y < last(centre_y + reach_y, window.height); ++y) {
    const auto body = static_cast<float>(kBodyCounts * profile(y - centre_y, kBodyRadius * kBodyStretch));
    const auto core = static_cast<float>(kCoreCounts * profile(y - centre_y, kCoreRadius));
    uint16_t* row = picture.data() + std::size_t{y} * window.width;
    for (uint32_t x = left; x < right; ++x) {
      const std::array<float, 2>& column = columns[x - left];
      row[x] = clamped(row[x] + static_cast<int>(body * column[0] + core * column[1]));
    }
  }
}

}  // namespace simulator
