// The library with the fake camera that Aravis brings: a device that knows nothing of ours.
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>

#include "camera/CameraCenter.h"
#include "pv/aravis/DeviceDetails.h"
#include "pv/aravis/StreamDetails.h"
#include "serial/CameraSerialSettings.h"
#include "tests/support/ChildProcess.h"

namespace {

constexpr const char* kSerial = "KEOD0001";

// The child answers discovery once it has bound its socket: searched for until then.
std::unique_ptr<CameraCenter> centerWithFakeCamera(const test_support::ChildProcess& camera) {
  auto center = std::make_unique<CameraCenter>("");
  for (int attempt = 0; center->cameras.empty() && attempt < 10 && camera.running(); ++attempt) {
    center->RefindCameras();
  }
  return center;
}

TEST(FakeCamera, ListConnectStream_FiftyFrames) {
  const test_support::ChildProcess fake({"arv-fake-gv-camera-0.8", "-i", "127.0.0.1", "-s", kSerial},
                                        test_support::ChildProcess::Written::Discarded);
  const auto center = centerWithFakeCamera(fake);
  ASSERT_EQ(center->cameras.size(), 1u);
  Camera& camera = *center->cameras[0];
  EXPECT_EQ(camera.serialNumber, kSerial);
  EXPECT_EQ(keocam::detailsOf(*camera.deviceInfo).vendor, "Aravis");
  EXPECT_EQ(keocam::detailsOf(*camera.deviceInfo).model, "Fake");
  EXPECT_EQ(keocam::useOf(*camera.deviceInfo), keocam::DeviceUse::Free);

  // It has no core, nor the features of a bridge to one.
  ASSERT_EQ(camera.Connect(), 0);
  const std::unique_ptr<CameraSerialSettings> settings(camera.serialSettings);
  EXPECT_FALSE(settings->GetIsSupported());
  EXPECT_EQ(keocam::useOf(*camera.deviceInfo), keocam::DeviceUse::ThisProcess);
  camera.StartAcquisition();
  uint64_t previous = 0;
  for (int i = 0; i < 50; ++i) {
    camera.buffer = nullptr;
    ASSERT_NE(camera.RetreiveBuffer(), nullptr) << "frame " << i;
    const keocam::FrameDetails frame = keocam::detailsOf(*camera.buffer);
    EXPECT_EQ(frame.width, 512u);
    EXPECT_EQ(frame.height, 512u);
    EXPECT_EQ(frame.size, 512u * 512u);
    EXPECT_GT(frame.block_id, previous);
    previous = frame.block_id;
    camera.ReleaseBuffer();
  }
  camera.StopAcquisition();
  camera.Disconnect();
  EXPECT_EQ(keocam::useOf(*center->cameras[0]->deviceInfo), keocam::DeviceUse::Free);
}

}  // namespace
