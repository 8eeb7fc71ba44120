// A camera that shows a scene in degrees, as frames on the wire, and another one while it streams.
#include <gtest/gtest.h>

#include <stdexcept>

#include "TestHost.h"
#include "simulator/ConsoleCommands.h"
#include "simulator/core/CoreOptionsFor.h"
#include "simulator/core/VideoPicture.h"
#include "simulator/scene/SceneText.h"

namespace {

using namespace simulator;
using Picture = std::vector<uint16_t>;
constexpr std::size_t kPixels = std::size_t{160} * 128;

class SceneStream : public ::testing::Test {
 protected:
  SceneStream() {
    CameraOptions options;
    options.sensor = {160, 128};
    options.frame_rate_hz = 50;
    options.temperatures = parseScene("uniform:celsius=54.5217");
    CoreOptions core = coreOptionsFor(options);
    core.thermal.still = true;
    options.core = std::make_shared<ThermalCore>(core);
    cameras.push_back(std::make_unique<SimulatedCamera>(options));
    EXPECT_TRUE(host.takeControl());
  }
  SimulatedCamera& camera() { return *cameras[0]; }
  Picture frame(uint64_t block_id) {
    for (int tries = 0; tries < 100; ++tries) {
      const auto next = host.nextFrame();
      if (!next) break;
      if (next->block_id == block_id) return next->pixels();
    }
    return {};
  }
  std::string say(const std::string& line) { return executeConsoleLine(line, cameras).text; }
  Cameras cameras;
  TestHost host{"127.0.0.2"};
};

TEST_F(SceneStream, Frames_AreTheScenesCounts) {
  ASSERT_TRUE(host.startStream());
  EXPECT_EQ(frame(2), Picture(kPixels, 5000));
  const auto video = camera().options().core->videoOf(2);
  ASSERT_TRUE(video);
  EXPECT_EQ(trueTemperatures(*camera().scene(), 160, 128, *video), std::vector<double>(kPixels, 54.5217));
}

TEST_F(SceneStream, AnotherScene_IsSeenFromTheBlockThatIsSaid) {
  ASSERT_TRUE(host.startStream());
  EXPECT_EQ(frame(1)[0], 5000);
  const uint64_t block_id = camera().show(parseScene("uniform:celsius=16.0846"));
  EXPECT_GE(block_id, 2U);
  EXPECT_EQ(frame(block_id), Picture(kPixels, 3000));
  EXPECT_EQ(camera().sceneSettings().temperatures->low_celsius, 16.0846);
}

TEST_F(SceneStream, SceneThatDoesNotServe_LeavesTheOneBefore) {
  TemperatureSceneSettings settings;
  settings.low_celsius = 9999;
  EXPECT_THROW(camera().show(settings), std::invalid_argument);
  EXPECT_EQ(camera().sceneSettings().temperatures->low_celsius, 54.5217);
}

TEST_F(SceneStream, ConsoleCommand_ChangesTheScene) {
  EXPECT_EQ(say("scene hot-spot:high=120"), "");
  EXPECT_EQ(camera().sceneSettings().temperatures->shape, SceneShape::HotSpot);
  EXPECT_EQ(camera().sceneSettings().temperatures->high_celsius, 120);
  EXPECT_EQ(say("scene moving"), "");
  EXPECT_FALSE(camera().sceneSettings().temperatures);
  EXPECT_EQ(say("scene"), "usage: scene NAME[:key=value,...]|moving\n");
  EXPECT_EQ(say("scene uniform:celsius=9999"), "uniform: celsius=9999 is not in -40 to 1500 C\n");
  EXPECT_NE(say("help").find("scene NAME"), std::string::npos);
  EXPECT_FALSE(camera().sceneSettings().temperatures);
}

}  // namespace
