#include "simulator/SceneArguments.h"

#include <map>
#include <stdexcept>

#include "simulator/calibration/TemperatureCorrection.h"
#include "simulator/scene/SceneText.h"

namespace simulator {
namespace {

const std::map<std::string, CalibrationRange> kRanges{{"middle", CalibrationRange::Middle},
                                                      {"high", CalibrationRange::High}};

}  // namespace

SceneArguments::SceneArguments(CLI::App& app) {
  auto* scene = app.add_option("--scene", scene_, "A scene in degrees in place of the moving one; see below")
                    ->option_text("NAME[:key=value,...]");
  app.add_option("--scene-range", range_, "The host's range that the core's low gain is used for [middle]")
      ->check(CLI::IsMember(kRanges))
      ->option_text("middle|high")
      ->needs(scene);
}

void SceneArguments::check() const {
  if (!given()) return;
  try {
    parseScene(scene_.value_or(""));
  } catch (const std::invalid_argument& error) {
    throw CLI::ValidationError("--scene", error.what());
  }
}

TemperatureSceneSettings SceneArguments::make(const std::optional<LensPoints>& lens) const {
  TemperatureSceneSettings settings = parseScene(scene_.value_or(""));
  settings.low_gain_range = kRanges.at(range_);
  if (!lens) return settings;
  if (settings.low_gain_range == CalibrationRange::High && !lens->with_1500) {
    throw std::runtime_error("the lens has no high range; leave --scene-range high out, or choose another lens");
  }
  settings.correction = std::make_shared<TemperatureCorrection>(lens->points, lens->version);
  return settings;
}

}  // namespace simulator
