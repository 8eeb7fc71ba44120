// Every model of core that the simulator has, connected: what is made of it, and whether its frames come.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "pv/aravis/StreamDetails.h"
#include "serial/CameraSerialSettings.h"
#include "simulator/core/ModelCatalogue.h"
#include "tests/e2e/StreamingCamera.h"

namespace {

using simulator::CoreModel;
using simulator::SimulatedCamera;

constexpr int kFrames = 4;
constexpr uint32_t kMono14 = 0x01100025;

bool contains(std::string_view text, const char* part) { return text.find(part) != std::string_view::npos; }

/// What the catalogue's name of a model promises.
struct Promise {
  explicit Promise(const CoreModel& model)
      : supported(model.id != "unknown"),
        fast(!contains(model.id, "-slow")),
        radiometric(contains(model.id, "r-")),
        name("KEO_" + (supported ? std::to_string(model.sensor.width) : "-1")),
        width(supported ? static_cast<int>(model.sensor.width) : -1),
        height(supported ? static_cast<int>(model.sensor.height) : -1) {}

  bool supported;
  bool fast;
  bool radiometric;
  std::string name;
  int width;
  int height;
};

class Models : public testing::TestWithParam<CoreModel> {};

TEST_P(Models, Connect_IdentifiesTheCoreAndItsFramesCome) {
  const CoreModel& model = GetParam();
  const Promise promise(model);
  simulator::CameraOptions options = e2e::cameraOptions(0, promise.fast ? 30.0 : 9.0);
  // Of the device's largest window the core's pictures are a part, unless the connection sets Width and Height.
  options.sensor = simulator::models::k640;
  options.serial = simulator::usualSerial(model);
  const SimulatedCamera simulated(e2e::withFastCore(options, std::string(model.part_number)));
  CameraCenter center("");
  Camera& camera = e2e::cameraOf(center, options.serial);
  const e2e::StartedConnection connection(camera);

  CameraSerialSettings& core = *camera.serialSettings;
  EXPECT_EQ(core.GetIsSupported(), promise.supported);
  EXPECT_EQ(core.GetCameraPartNumber(), model.part_number);
  EXPECT_EQ(core.GetModel(), promise.name);
  EXPECT_EQ(core.GetResolutionX(), promise.width);
  EXPECT_EQ(core.GetResolutionY(), promise.height);
  EXPECT_EQ(core.GetIsFastVideoSpeed(), promise.fast);
  EXPECT_EQ(core.GetIsRadiometric(), promise.radiometric);
  EXPECT_EQ(core.GetRadiometryMode(), promise.radiometric);
  EXPECT_EQ(camera.limitFrameRate, !promise.fast);

  EXPECT_EQ(camera.device->GetPayloadSize(), int64_t{2} * model.sensor.width * model.sensor.height);
  camera.StartAcquisition();
  for (int frame = 0; frame < kFrames; ++frame) {
    camera.buffer = nullptr;
    ASSERT_NE(camera.RetreiveBuffer(), nullptr) << "frame " << frame;
    const keocam::FrameDetails details = keocam::detailsOf(*camera.buffer);
    camera.ReleaseBuffer();
    EXPECT_EQ(details.width, model.sensor.width);
    EXPECT_EQ(details.height, model.sensor.height);
    EXPECT_EQ(details.size, 2 * model.sensor.width * model.sensor.height);
    EXPECT_EQ(details.pixel_format, kMono14);
  }
}

INSTANTIATE_TEST_SUITE_P(Catalogue, Models, testing::ValuesIn(simulator::kCoreModels), [](const auto& model) {
  std::string name(model.param.id);
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
});

}  // namespace
