// Scenes as options say them, and what is wrong with them.
#include "simulator/scene/SceneText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "simulator/CommandLine.h"
#include "simulator/scene/SceneTable.h"

namespace {

using namespace simulator;
using ::testing::HasSubstr;

std::string errorOf(const std::string& text) {
  try {
    parseScene(text);
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
  return "";
}

TEST(SceneText, NameAlone_GivesTheScenesOwnValues) {
  const TemperatureSceneSettings scene = parseScene("gradient");
  EXPECT_EQ(scene.shape, SceneShape::Gradient);
  EXPECT_EQ(scene.low_celsius, 0);
  EXPECT_EQ(scene.high_celsius, 100);
  EXPECT_EQ(scene.surroundings.emissivity, 0.95);
  EXPECT_EQ(scene.surroundings.distance_m, 1);
  EXPECT_EQ(scene.low_gain_range, CalibrationRange::Middle);
}

/// NAME:key=value, with the other limit moved out of the way of one.
std::string textOf(const SceneRow& row, const SceneKey& key, double value) {
  std::ostringstream text;
  text << row.name << ':' << key.name << '=' << value;
  if (key.name == "low") text << ",high=1500";
  if (key.name == "high") text << ",low=-40";
  return text.str();
}

TEST(SceneText, EveryKey_ReachesItsValueAtBothBounds) {
  for (const SceneRow& row : sceneRows()) {
    for (const SceneKey& key : sceneKeys()) {
      if (!key.isOf(row.shape)) continue;
      for (const double value : {key.minimum, key.maximum}) {
        TemperatureSceneSettings scene = parseScene(textOf(row, key, value));
        EXPECT_EQ(key.of(scene), value) << textOf(row, key, value);
      }
    }
  }
}

TEST(SceneText, EveryKeyOutOfItsBounds_IsRefusedByName) {
  for (const SceneRow& row : sceneRows()) {
    for (const SceneKey& key : sceneKeys()) {
      if (!key.isOf(row.shape)) continue;
      for (const double value : {key.minimum - 1, key.maximum + 1}) {
        const std::string text = textOf(row, key, value);
        const std::string named = std::string(row.name) + ": " + std::string(key.name) + '=';
        EXPECT_THAT(errorOf(text), HasSubstr(named)) << text;
        EXPECT_THAT(errorOf(text), HasSubstr(" is not in ")) << text;
      }
    }
  }
}

TEST(SceneText, SeveralKeys_AreAllTaken) {
  const TemperatureSceneSettings scene = parseScene("hot-spot:high=120.5,x=0.3,emissivity=0.6,humidity=0.9");
  EXPECT_EQ(scene.high_celsius, 120.5);
  EXPECT_EQ(scene.x, 0.3);
  EXPECT_EQ(scene.surroundings.emissivity, 0.6);
  EXPECT_EQ(scene.surroundings.humidity, 0.9);
  EXPECT_EQ(scene.y, 0.5);
}

TEST(SceneText, Mistakes_AreNamedWithWhatThereIs) {
  EXPECT_EQ(errorOf("pump"), "there is no scene 'pump'; there are: uniform, gradient, hot-spot, blackbodies");
  EXPECT_THAT(errorOf(""), HasSubstr("there is no scene ''"));
  EXPECT_THAT(errorOf("uniform:low=3"), HasSubstr("uniform has no 'low'; it has: celsius, emissivity"));
  EXPECT_THAT(errorOf("uniform:=3"), HasSubstr("uniform has no ''"));
  EXPECT_EQ(errorOf("uniform:celsius=warm"), "uniform: celsius='warm' is not a number");
  EXPECT_EQ(errorOf("uniform:celsius"), "uniform: celsius='' is not a number");
  EXPECT_EQ(errorOf("uniform:celsius=3C"), "uniform: celsius='3C' is not a number");
  EXPECT_EQ(errorOf("uniform:celsius=-41"), "uniform: celsius=-41 is not in -40 to 1500 C");
  EXPECT_THAT(errorOf("uniform:celsius=nan"), HasSubstr("is not in"));
  EXPECT_THAT(errorOf("uniform:celsius=1,,humidity=1"), HasSubstr("uniform has no ''"));
  EXPECT_EQ(errorOf("blackbodies:plates=2.5"), "blackbodies: plates=2.5 is not a whole number");
  EXPECT_EQ(errorOf("gradient:low=90,high=80"), "gradient: low=90 is above high=80");
}

TEST(SceneText, Help_HasEverySceneAndKey) {
  const std::string help = sceneHelpText();
  for (const SceneRow& row : sceneRows()) EXPECT_THAT(help, HasSubstr("  " + std::string(row.name)));
  for (const SceneKey& key : sceneKeys()) EXPECT_THAT(help, HasSubstr("    " + std::string(key.name)));
}

std::variant<ProgramOptions, int> parse(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "keocam-simulator");
  return parseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

TEST(SceneOptions, Scene_ReachesEveryCamera) {
  const auto program =
      std::get<ProgramOptions>(parse({"--cameras", "2", "--scene", "uniform:celsius=37", "--scene-range", "high"}));
  for (const CameraOptions& camera : program.cameras) {
    ASSERT_TRUE(camera.temperatures);
    EXPECT_EQ(camera.temperatures->low_celsius, 37);
    EXPECT_EQ(camera.temperatures->low_gain_range, CalibrationRange::High);
    EXPECT_EQ(camera.temperatures->correction, nullptr);
  }
}

TEST(SceneOptions, WithoutAScene_TheMovingOneStays) {
  EXPECT_FALSE(std::get<ProgramOptions>(parse({})).cameras[0].temperatures);
}

TEST(SceneOptions, Mistakes_EndWithTwo) {
  for (const std::vector<const char*>& words : {std::vector<const char*>{"--scene", "pump"},
                                                {"--scene", ""},
                                                {"--scene", "uniform:celsius=9999"},
                                                {"--scene-range", "high"},
                                                {"--scene", "uniform", "--scene-range", "low"}}) {
    testing::internal::CaptureStderr();
    const auto parsed = parse(words);
    const std::string said = testing::internal::GetCapturedStderr();
    ASSERT_TRUE(std::holds_alternative<int>(parsed)) << words.back();
    EXPECT_EQ(std::get<int>(parsed), 2);
    EXPECT_THAT(said, HasSubstr("--scene"));
  }
}

}  // namespace
