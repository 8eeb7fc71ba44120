// What a CameraCenter finds on a real network, and how it sees cameras come and go.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "camera/CameraCenter.h"
#include "tests/e2e/StreamingCamera.h"

namespace {

using simulator::SimulatedCamera;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

std::vector<std::string> serialsOf(const CameraCenter& center) {
  std::vector<std::string> serials;
  for (const Camera* const camera : center.cameras) serials.push_back(camera->serialNumber);
  return serials;
}

TEST(Discovery, NoCamera_LeavesTheListEmpty) {
  const CameraCenter center("");
  EXPECT_TRUE(center.cameras.empty());
}

TEST(Discovery, CamerasComeAndGo_RefindCamerasSeesIt) {
  auto first = std::make_unique<SimulatedCamera>(e2e::cameraOptions(0, 30.0));
  CameraCenter center("");
  EXPECT_THAT(serialsOf(center), ElementsAre("KEOD2001"));
  const PvDeviceInfo* const info = center.cameras[0]->deviceInfo;

  const SimulatedCamera second(e2e::cameraOptions(1, 30.0));
  center.RefindCameras();
  EXPECT_THAT(serialsOf(center), UnorderedElementsAre("KEOD2001", "KEOD2002"));
  EXPECT_EQ(e2e::cameraOf(center, "KEOD2001").deviceInfo, info) << "the same device keeps its description";

  first.reset();
  center.RefindCameras();
  EXPECT_THAT(serialsOf(center), ElementsAre("KEOD2002"));
  EXPECT_STREQ(info->GetSerialNumber().GetAscii(), "KEOD2001") << "descriptions live as long as the centre";
  EXPECT_EQ(center.deviceInfos.size(), 1u + 2u + 1u);
}

TEST(Discovery, HostileSerialNumber_StillBecomesACamera) {
  simulator::CameraOptions options = e2e::cameraOptions(0, 30.0);
  options.serial = "../../etc";
  const SimulatedCamera simulated(options);
  const CameraCenter center("calibrations");
  ASSERT_EQ(center.cameras.size(), 1u);
  EXPECT_EQ(center.cameras[0]->serialNumber, "../../etc");
  EXPECT_EQ(center.cameras[0]->calibrationText, "");
  EXPECT_EQ(center.cameras[0]->calibrationVersion, "00");
}

}  // namespace
