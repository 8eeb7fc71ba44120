// Construction of a camera, and what its connection goes by. Its core is silent here; ConnectSequenceTest has the whole
// sequence, ConnectFailureTest the steps that fail.
#include <algorithm>
#include <ios>
#include <iostream>
#include <stdexcept>

#include "PvStreamGEV.h"
#include "tests/unit/ScriptedTest.h"
#include "tests/unit/camera/ScriptedCamera.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CameraConnectTest : public ScriptedCameraTest {
 protected:
  ~CameraConnectTest() override {
    delete camera_.pipeline;
    PvStream::Free(camera_.stream);
    PvDevice::Free(camera_.device);
  }

  ScriptedCamera camera_{info(), "text", "03", "ABCD1000"};
};

TEST_F(CameraConnectTest, Constructors_SetWhatTheyAreGivenAndDefaultTheRest) {
  const Camera one(info());
  EXPECT_EQ(one.deviceInfo, info());
  EXPECT_EQ(one.calibrationText, "");
  EXPECT_EQ(one.calibrationVersion, "00");
  EXPECT_EQ(one.serialNumber, "");
  EXPECT_EQ(one.stream, nullptr);
  EXPECT_EQ(one.pipeline, nullptr);
  EXPECT_EQ(one.device, nullptr);
  EXPECT_EQ(one.acquisitionStartCommand, nullptr);
  EXPECT_EQ(one.acquisitionStopCommand, nullptr);
  EXPECT_EQ(one.buffer, nullptr);
  EXPECT_EQ(one.parameters, nullptr);
  EXPECT_EQ(one.serialSettings, nullptr);
  EXPECT_FALSE(one.acquiring);
  EXPECT_EQ(one.lastFrameTime, 0);
  EXPECT_FALSE(one.limitFrameRate);

  const Camera two(info(), "text");
  EXPECT_EQ(two.calibrationText, "text");
  EXPECT_EQ(two.calibrationVersion, "00");

  const Camera three(info(), "text", "02");
  EXPECT_EQ(three.calibrationVersion, "02");
  EXPECT_EQ(three.serialNumber, "");

  const Camera four(info(), "text", "02", "ABCD1000");
  EXPECT_EQ(four.calibrationText, "text");
  EXPECT_EQ(four.calibrationVersion, "02");
  EXPECT_EQ(four.serialNumber, "ABCD1000");
}

TEST_F(CameraConnectTest, Members_LieInTheOrderThatApplicationsWereBuiltWith) {
  const auto address = [](const auto& member) { return reinterpret_cast<uintptr_t>(&member); };
  const std::vector<uintptr_t> addresses = {address(camera_.stream),
                                            address(camera_.pipeline),
                                            address(camera_.device),
                                            address(camera_.acquisitionStartCommand),
                                            address(camera_.acquisitionStopCommand),
                                            address(camera_.buffer),
                                            address(camera_.parameters),
                                            address(camera_.deviceInfo),
                                            address(camera_.serialSettings),
                                            address(camera_.calibrationText),
                                            address(camera_.calibrationVersion),
                                            address(camera_.serialNumber),
                                            address(camera_.acquiring),
                                            address(camera_.lastFrameTime),
                                            address(camera_.limitFrameRate)};
  EXPECT_TRUE(std::is_sorted(addresses.begin(), addresses.end()));
}

TEST_F(CameraConnectTest, GetStatus_NewCamera_IsDisconnected) {
  EXPECT_EQ(camera_.GetStatus(), "Disconnected");
  EXPECT_FALSE(camera_.IsConnected());
  EXPECT_FALSE(camera_.IsAcquiring());
}

TEST_F(CameraConnectTest, Connect_DeviceOfAnotherKind_IsNotConfigured) {
  device_->is_gige_vision = false;
  EXPECT_EQ(camera_.Connect(), 0);
  EXPECT_THAT(take({"PvDeviceGEV"}), IsEmpty());
}

TEST_F(CameraConnectTest, Connect_Twice_SaysSoWithoutTheBlankAndLeavesTheConnection) {
  camera_.Connect();
  const PvDevice* const device = camera_.device;
  log().clear();
  EXPECT_EQ(camera_.Connect(), -1);
  EXPECT_THAT(takeAll(), ElementsAre("PvDevice::IsConnected", "out: Camera: Camera Cam Ais connected.\\n"));
  EXPECT_EQ(camera_.device, device);
}

TEST_F(CameraConnectTest, Connect_AbsentDisplayIdentifier_SetsTheStreamsFailBitAndPrintsNothingMore) {
  device_->display_id = PvString();
  EXPECT_EQ(camera_.Connect(), 0);
  EXPECT_NE(std::cout.rdstate() & std::ios::failbit, 0);
  std::cout.clear();
  std::cout << std::flush;
  EXPECT_THAT(take({"out"}), ElementsAre("out: Camera: Connecting to "));

  EXPECT_EQ(camera_.Connect(), -1);
  EXPECT_NE(std::cout.rdstate() & std::ios::failbit, 0);
  std::cout.clear();
  std::cout << std::flush;
  EXPECT_THAT(takePrinted(), ElementsAre("out: Camera: Camera "));
}

TEST_F(CameraConnectTest, ConfigureStream_WithoutDevice_DoesNothing) {
  camera_.ConfigureStream();
  EXPECT_THAT(takeAll(), IsEmpty());
}

struct SerialCase {
  const char* serial;
  bool limited;
};

class SpeedClassTest : public ScriptedCameraTest, public testing::WithParamInterface<SerialCase> {};

TEST_P(SpeedClassTest, Connect_LimitsFramesOfTheSlowClassOnly) {
  device_->accepts_connection = false;
  ScriptedCamera camera(info(), "", "00", GetParam().serial);
  camera.Connect();
  EXPECT_EQ(camera.limitFrameRate, GetParam().limited);
  EXPECT_EQ(camera.lastFrameTime, GetParam().limited ? kStart_ms : 0);
}

INSTANTIATE_TEST_SUITE_P(Serials, SpeedClassTest,
                         testing::Values(SerialCase{"ABCC1703", true}, SerialCase{"ABCC1702", false},
                                         SerialCase{"ABCC1701", false}, SerialCase{"ABCD1703", false},
                                         SerialCase{"ABCE9999", false}, SerialCase{"ABCc1703", false},
                                         SerialCase{"ABCC1703-7", true},      // the digits end the number
                                         SerialCase{"ABCC0001703", true},     // 7 characters count:
                                         SerialCase{"ABCC000001703", false},  // this is 0000017
                                         SerialCase{"ABCC 1703", true},       // blanks before it are skipped
                                         SerialCase{"ABCC-1703", false}));

class BadSerialTest : public ScriptedCameraTest {
 protected:
  template <typename Exception>
  void expectThrow(const char* serial) {
    ScriptedCamera camera(info(), "", "00", serial);
    EXPECT_THROW(camera.Connect(), Exception) << serial;
    EXPECT_THAT(takeAll(), IsEmpty()) << serial;
    EXPECT_EQ(camera.device, nullptr);
    EXPECT_FALSE(camera.limitFrameRate);
  }
};

TEST_F(BadSerialTest, Connect_FewerThanFourCharacters_ThrowsOutOfRangeBeforeAnythingElse) {
  expectThrow<std::out_of_range>("");
  expectThrow<std::out_of_range>("ABC");
}

TEST_F(BadSerialTest, Connect_NoNumberAtPositionFour_ThrowsInvalidArgumentBeforeAnythingElse) {
  expectThrow<std::invalid_argument>("ABCC");
  expectThrow<std::invalid_argument>("ABCCX1703");
  try {
    ScriptedCamera(info(), "", "00", "ABCC").Connect();
    FAIL();
  } catch (const std::invalid_argument& error) {
    EXPECT_STREQ(error.what(), "stoi");
  }
}

TEST_F(BadSerialTest, Connect_ConnectedCamera_IsRefusedBeforeTheSerialNumberIsRead) {
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  ASSERT_EQ(camera.Connect(), 0);
  camera.serialNumber = "";
  EXPECT_EQ(camera.Connect(), -1);
  camera.Disconnect();
}

}  // namespace
