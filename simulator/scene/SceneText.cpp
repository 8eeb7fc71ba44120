#include "simulator/scene/SceneText.h"

#include <algorithm>
#include <charconv>
#include <iomanip>
#include <sstream>
#include <stdexcept>

#include "simulator/scene/SceneTable.h"

namespace simulator {
namespace {

constexpr int kNameColumn = 12;
constexpr int kBoundsColumn = 19;

template <typename Rows, typename Wanted>
std::string namesOf(const Rows& rows, Wanted wanted) {
  std::string names;
  for (const auto& row : rows) {
    if (!wanted(row)) continue;
    if (!names.empty()) names += ", ";
    names += row.name;
  }
  return names;
}

const SceneRow& sceneNamed(std::string_view name) {
  const auto& rows = sceneRows();
  const auto* row = std::find_if(rows.begin(), rows.end(), [&](const SceneRow& any) { return any.name == name; });
  if (row != rows.end()) return *row;
  throw std::invalid_argument("there is no scene '" + std::string(name) +
                              "'; there are: " + namesOf(rows, [](const SceneRow&) { return true; }));
}

void applyPair(const SceneRow& scene, std::string_view pair, TemperatureSceneSettings& settings) {
  const std::size_t equals = std::min(pair.find('='), pair.size());
  const std::string_view name = pair.substr(0, equals);
  const auto belongs = [&](const SceneKey& key) { return key.isOf(scene.shape); };
  const auto& keys = sceneKeys();
  const auto* key =
      std::find_if(keys.begin(), keys.end(), [&](const SceneKey& any) { return belongs(any) && any.name == name; });
  if (key == keys.end()) {
    throw std::invalid_argument(std::string(scene.name) + " has no '" + std::string(name) +
                                "'; it has: " + namesOf(keys, belongs));
  }
  const std::string_view digits = pair.substr(std::min(equals + 1, pair.size()));
  double value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (read.ec != std::errc() || read.ptr != digits.data() + digits.size()) {
    throw std::invalid_argument(std::string(scene.name) + ": " + std::string(name) + "='" + std::string(digits) +
                                "' is not a number");
  }
  key->of(settings) = value;
}

void describe(std::ostringstream& text, const SceneKey& key, TemperatureSceneSettings start) {
  std::ostringstream bounds;
  bounds << key.minimum << " to " << key.maximum << (key.unit.empty() ? "" : " ") << key.unit;
  text << "    " << std::left << std::setw(kNameColumn) << key.name << std::setw(kBoundsColumn) << bounds.str()
       << key.help << " [" << key.of(start) << "]\n";
}

constexpr bool isOfAll(const SceneKey& key) { return key.shapes == (1U << kSceneShapes) - 1; }

}  // namespace

TemperatureSceneSettings parseScene(std::string_view text) {
  const std::size_t colon = std::min(text.find(':'), text.size());
  const SceneRow& scene = sceneNamed(text.substr(0, colon));
  TemperatureSceneSettings settings = scene.start();
  for (std::size_t begin = colon + 1; begin < text.size();) {
    const std::size_t end = std::min(text.find(',', begin), text.size());
    applyPair(scene, text.substr(begin, end - begin), settings);
    begin = end + 1;
  }
  checkScene(settings);
  return settings;
}

std::string sceneHelpText() {
  std::ostringstream text;
  text << "Scenes in degrees, for --scene NAME[:key=value,...]:\n";
  for (const SceneRow& scene : sceneRows()) {
    text << "  " << std::left << std::setw(kNameColumn + 2) << scene.name << scene.help << '\n';
    for (const SceneKey& key : sceneKeys()) {
      if (key.isOf(scene.shape) && !isOfAll(key)) describe(text, key, scene.start());
    }
  }
  text << "  in all of them\n";
  for (const SceneKey& key : sceneKeys()) {
    if (isOfAll(key)) describe(text, key, sceneRows()[0].start());
  }
  return text.str();
}

}  // namespace simulator
