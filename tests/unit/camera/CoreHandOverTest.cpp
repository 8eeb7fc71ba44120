// The last stage of a connection, one after the other: whose calibration is in force, whose object is held.
#include <memory>

#include "PvStreamGEV.h"
#include "tests/unit/calibration/CalibrationTexts.h"
#include "tests/unit/camera/AnsweringCoreTest.h"
#include "tests/unit/camera/ScriptedCamera.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CoreHandOverTest : public AnsweringCoreTest<ScriptedCameraTest> {
 protected:
  static std::string textOf(const std::vector<std::string>& lenses) {
    std::string text;
    for (const std::string& name : lenses) {
      calibration_texts::Lens lens;
      lens.name = name;
      text += calibration_texts::record(lens);
    }
    return text;
  }
};

TEST_F(CoreHandOverTest, Connect_NoCalibrationAndNoRadiometry_StartsTheCoreUpAllTheSame) {
  answering_.part_number = "46336007X-SPNLX";
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  EXPECT_EQ(camera.Connect(), 0);
  EXPECT_EQ(
      takeAll(),
      joined({{"out: Camera: Connecting to Cam A.\\n", "PvDevice::CreateAndConnect Cam A",
               "PvStream::CreateAndOpen 192.0.2.10", "PvDeviceGEV::NegotiatePacketSize 0 0",
               "PvDeviceGEV::SetStreamDestination 192.0.2.1 50123 0", "PvPipeline::PvPipeline",
               "PvDevice::GetPayloadSize", "PvPipeline::SetBufferCount 2", "PvPipeline::SetBufferSize 655360",
               "PvDevice::IsConnected", "PvDevice::IsConnected", startUpLine("Setting default settings")},
              featureEvents(),
              writeEvents(0),
              readEvents(102),
              {"PvGenParameterArray::SetIntegerValue Width 336", "PvGenParameterArray::SetIntegerValue Height 256"},
              writeEvents(11, {0x00, 0x01}),
              writeEvents(18, {0x03, 0x02}),
              writeEvents(18, {0x06, 0x00}),
              writeEvents(10, {0x00, 0x02}),
              {"sleep 1 s"},
              writeEvents(12),
              {"sleep 1 s", "sleep 1 s"},
              readEvents(32, {0x00, 0x00}),
              writeEvents(12),
              {"PvStream::IsOpen"}}));
  EXPECT_EQ(camera.serialSettings->GetModel(), "KEO_336");
  camera.Disconnect();
}

TEST_F(CoreHandOverTest, Connect_SecondCamera_ReplacesTheFirstOnesCalibration) {
  ScriptedCamera first(info(), textOf({"L25mm", "L50mm"}), "03", "KEOC2001");
  ASSERT_EQ(first.Connect(), 0);
  currentLensNumber = 1;
  EXPECT_EQ(CamSpeed.speed, 0);

  const auto other = makeDevice("KEOD2002", "192.0.2.11");
  scripted::network().interfaces.push_back(scripted::Interface{other});
  ScriptedCamera second(scripted::infoOf(other), textOf({"L75mm"}), "03", "KEOD2002");
  ASSERT_EQ(second.Connect(), 0);
  EXPECT_THAT(lensesInForce(), ElementsAre("L75mm"));
  EXPECT_EQ(currentLensNumber, 0);
  EXPECT_EQ(CamSpeed.speed, 1);
  EXPECT_THAT(first.serialSettings->GetAvailibleLenses(), ElementsAre("L75mm")) << "it is the process'";

  ScriptedCamera third(scripted::infoOf(other), "", "00", "KEOD2003");
  EXPECT_EQ(third.Connect(), 0);
  EXPECT_THAT(lensesInForce(), IsEmpty()) << "and of one without a calibration there is none";
  for (ScriptedCamera* const camera : {&first, &second, &third}) camera->Disconnect();
}

TEST_F(CoreHandOverTest, Connect_SilentCore_IsStillAConnection) {
  answering_.unheard = 1000;
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  EXPECT_EQ(camera.Connect(), 0);
  EXPECT_EQ(log().of({"err"}).back(), startUpLine("Camera communication error", "err"));
  EXPECT_FALSE(camera.serialSettings->GetIsSupported());
  EXPECT_EQ(camera.serialSettings->GetCameraPartNumber(), "");
  camera.StartAcquisition();
  scripted::network().retrievals = {scripted::Retrieval{uint8_t{7}, {}, 0}};
  EXPECT_NE(camera.RetreiveBuffer(), nullptr);
  camera.ReleaseBuffer();
  camera.Disconnect();
}

TEST_F(CoreHandOverTest, Connect_FailedBefore_MakesNoObjectAndKeepsTheFormerOne) {
  ScriptedCamera camera(info(), textOf({"L25mm"}), "03", "ABCD1000");
  device_->stream_opens = false;
  EXPECT_EQ(camera.Connect(), -1);
  EXPECT_EQ(camera.serialSettings, nullptr);
  EXPECT_THAT(lensesInForce(), IsEmpty());
  camera.Disconnect();

  device_->stream_opens = true;
  ASSERT_EQ(camera.Connect(), 0);
  CameraSerialSettings* const settings = camera.serialSettings;
  camera.Disconnect();
  EXPECT_EQ(camera.serialSettings, settings) << "it survives the disconnection";

  device_->stays_connected = false;
  EXPECT_EQ(camera.Camera::Connect(), -1);
  EXPECT_EQ(camera.serialSettings, settings);
  camera.Disconnect();
  PvDevice::Free(camera.device);
}

TEST_F(CoreHandOverTest, Connect_Again_ReplacesTheObjectWithoutDeletingIt) {
  Camera camera(info(), "", "00", "ABCD1000");
  ASSERT_EQ(camera.Connect(), 0);
  const std::unique_ptr<CameraSerialSettings> former(camera.serialSettings);
  camera.Disconnect();
  ASSERT_EQ(camera.Connect(), 0);
  const std::unique_ptr<CameraSerialSettings> present(camera.serialSettings);
  EXPECT_NE(former, present);
  EXPECT_EQ(former->GetModel(), "KEO_640") << "an application may still hold it";
  EXPECT_EQ(present->GetPvDevice(), camera.device);
  camera.Disconnect();
}

}  // namespace
