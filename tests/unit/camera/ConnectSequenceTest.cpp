// The whole sequence of a connection, and what is in force after it.
#include <algorithm>

#include "tests/unit/camera/WholeConnect.h"

namespace {

using testing::ElementsAre;

TEST_F(WholeConnectTest, Connect_EveryCallEveryLineEveryMessage_InItsOrder) {
  EXPECT_EQ(camera_.Connect(), 0);
  EXPECT_EQ(takeAll(), wholeConnect());
}

TEST_F(WholeConnectTest, Connect_LeavesAConnectedCameraWithItsCoreAtTheDefaults) {
  ASSERT_EQ(camera_.Connect(), 0);
  EXPECT_EQ(left(), " device stream pipeline core");
  EXPECT_EQ(camera_.GetStatus(), "Connected");
  EXPECT_FALSE(camera_.limitFrameRate);
  EXPECT_THAT(lensesInForce(), ElementsAre("L25mm", "L50mm"));
  EXPECT_TRUE(CamSpeed.set);

  CameraSerialSettings& core = *camera_.serialSettings;
  EXPECT_EQ(core.GetPvDevice(), camera_.device);
  EXPECT_EQ(static_cast<int>(core.GetPvDeviceSerial()), 2);
  EXPECT_EQ(core.GetCameraSpeed(), 2);
  EXPECT_EQ(core.GetModel(), "KEO_640");
  EXPECT_TRUE(core.GetIsSupported());
  EXPECT_TRUE(core.GetIsRadiometric());
  EXPECT_TRUE(core.GetRadiometryMode());
  EXPECT_EQ(core.GetEmissivity(), 0.95);
  EXPECT_EQ(core.GetAtmosphericTemperatureK(), 293.15);
  EXPECT_EQ(core.GetReflectedTemperatureK(), 293.15);
  EXPECT_EQ(core.GetHumidity(), 0.5);
  EXPECT_EQ(core.GetRangeMode(), CameraSerialSettings::LowRange);
}

TEST_F(WholeConnectTest, Connect_WithoutDebugMessages_DoesTheSame) {
  scripted::network().during.erase("PvDevice::GetParameters");
  EXPECT_EQ(camera_.Connect(), 0);
  Events expected = wholeConnect();
  const auto is_debug = [](const std::string& event) {
    return event.compare(0, 5, "out: ") == 0 && event != "out: Camera: Connecting to Cam A.\\n" &&
           event != startUpLine("Setting default settings");
  };
  expected.erase(std::remove_if(expected.begin(), expected.end(), is_debug), expected.end());
  EXPECT_EQ(takeAll(), expected);
}

}  // namespace
