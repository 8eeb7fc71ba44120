// The last stage of a connection: the core's object, the camera's calibration, the start-up.
#include <stdexcept>

#include "PvStreamGEV.h"
#include "calibration/Calibration.h"
#include "tests/unit/calibration/CalibrationTexts.h"
#include "tests/unit/camera/AnsweringCore.h"
#include "tests/unit/camera/ScriptedCamera.h"
#include "tests/unit/radiometry/RadiometryTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CoreHandOverTest : public ScriptedCameraTest {
 protected:
  ~CoreHandOverTest() override {
    calibrationVect.clear();
    currentLensNumber = 0;
    CamSpeed = {};
  }

  static std::string textOf(const std::vector<std::string>& lenses) {
    std::string text;
    for (const std::string& name : lenses) {
      calibration_texts::Lens lens;
      lens.name = name;
      text += calibration_texts::record(lens);
    }
    return text;
  }
  static Log lensesInForce() {
    Log names;
    for (const CalibrationStruct& lens : calibrationVect) names.push_back(lens.lens);
    return names;
  }
  static void add(Log& log, const Log& events) { log.insert(log.end(), events.begin(), events.end()); }

  ModelAtLoad model_;
  AnsweringCore answering_;
};

TEST_F(CoreHandOverTest, Connect_Succeeds_InTheOrderThatDeviceAndCoreNeed) {
  answering_.part_number = "46336007X-SPNLX";
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  EXPECT_EQ(camera.Connect(), 0);

  Log expected = {"out: Camera: Connecting to Cam A.\\n",
                  "PvDevice::CreateAndConnect Cam A",
                  "PvStream::CreateAndOpen 192.0.2.10",
                  "PvDeviceGEV::NegotiatePacketSize 0 0",
                  "PvDeviceGEV::SetStreamDestination 192.0.2.1 50123 0",
                  "PvPipeline::PvPipeline",
                  "PvDevice::GetPayloadSize",
                  "PvPipeline::SetBufferCount 2",
                  "PvPipeline::SetBufferSize 655360",
                  "PvDevice::IsConnected",
                  "PvDevice::IsConnected",
                  "out: CameraSerialSettings::SetDefault(): Setting default settings\\n",
                  "PvDevice::GetParameters",
                  "PvGenParameterArray::SetEnumValue PixelFormat Mono14",
                  "PvGenParameterArray::SetEnumValue TestPattern Off",
                  "PvGenParameterArray::SetEnumValue BulkSelector Bulk0",
                  "PvGenParameterArray::SetEnumValue BulkMode UART",
                  "PvGenParameterArray::SetEnumValue BulkBaudRate Baud57600",
                  "PvGenParameterArray::SetEnumValue BulkNumOfStopBits One",
                  "PvGenParameterArray::SetEnumValue BulkParity None",
                  "PvGenParameterArray::SetBooleanValue BulkLoopback false"};
  add(expected, writeEvents(0));
  add(expected, readEvents(102));
  add(expected, {"PvGenParameterArray::SetIntegerValue Width 336", "PvGenParameterArray::SetIntegerValue Height 256"});
  add(expected, writeEvents(11, {0x00, 0x01}));
  add(expected, writeEvents(18, {0x03, 0x02}));
  add(expected, writeEvents(18, {0x06, 0x00}));
  add(expected, writeEvents(10, {0x00, 0x02}));
  add(expected, {"sleep 1 s"});
  add(expected, writeEvents(12));
  add(expected, {"sleep 1 s", "sleep 1 s"});
  add(expected, readEvents(32, {0x00, 0x00}));
  add(expected, writeEvents(12));
  add(expected, {"PvStream::IsOpen"});
  EXPECT_EQ(takeAll(), expected);

  ASSERT_NE(camera.serialSettings, nullptr);
  EXPECT_EQ(camera.serialSettings->GetPvDevice(), camera.device);
  EXPECT_EQ(static_cast<int>(camera.serialSettings->GetPvDeviceSerial()), 2);
  EXPECT_EQ(camera.serialSettings->GetModel(), "KEO_336");
  EXPECT_EQ(camera.GetStatus(), "Connected");
  camera.Disconnect();
}

TEST_F(CoreHandOverTest, Connect_PutsTheCamerasCalibrationInForce) {
  ScriptedCamera camera(info(), textOf({"L25mm", "L50mm"}), "03", "KEOE2001");
  EXPECT_EQ(camera.Connect(), 0);
  EXPECT_THAT(lensesInForce(), ElementsAre("L25mm", "L50mm"));
  EXPECT_EQ(currentLensNumber, 0);
  EXPECT_TRUE(CamSpeed.set);
  EXPECT_EQ(CamSpeed.speed, 2);
  EXPECT_EQ(camera.serialSettings->GetCameraSpeed(), 2);
  EXPECT_FALSE(camera.calibrationText.empty()) << "what it was given is kept";
  const std::string standard = "PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(114, {0x00, 0x04}));
  EXPECT_THAT(takeAll(), testing::Contains(standard)) << "the calibration came before the start-up";
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

TEST_F(CoreHandOverTest, Connect_UnusableCalibration_ThrowsWithEverythingInPlaceAndNothingSent) {
  const std::pair<const char*, const char*> rows[] = {
      {"BB:2", "no version"}, {"BB:2", "99999999999999999999"}, {"BB:x", "03"}, {"BB:1", "01"},  // and nothing after it
  };
  for (const auto& [text, version] : rows) {
    SCOPED_TRACE(text + (" in version " + std::string(version)));
    ScriptedCamera camera(info(), text, version, "ABCD1000");
    EXPECT_THROW(camera.Connect(), std::logic_error);
    EXPECT_THAT(take({"PvDeviceSerialPort", "PvGenParameterArray", "PvStream::IsOpen", "out: CameraSerial"}),
                IsEmpty());
    ASSERT_NE(camera.serialSettings, nullptr);
    EXPECT_NE(camera.device, nullptr);
    EXPECT_NE(camera.stream, nullptr);
    EXPECT_NE(camera.pipeline, nullptr);
    EXPECT_EQ(camera.GetStatus(), "Connected");
    camera.Disconnect();
    EXPECT_EQ(camera.GetStatus(), "Disconnected");
    log().clear();
  }
}

TEST_F(CoreHandOverTest, Connect_SilentCore_IsStillAConnection) {
  answering_.unheard = 1000;
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  EXPECT_EQ(camera.Connect(), 0);
  EXPECT_EQ(log().of({"err"}).back(), "err: CameraSerialSettings::SetDefault(): Camera communication error\\n");
  EXPECT_FALSE(camera.serialSettings->GetIsSupported());
  EXPECT_EQ(camera.serialSettings->GetCameraPartNumber(), "");
  camera.StartAcquisition();
  scripted::network().retrievals = {scripted::Retrieval{uint8_t{7}, {}, 0}};
  EXPECT_NE(camera.RetreiveBuffer(), nullptr);
  camera.ReleaseBuffer();
  camera.Disconnect();
}

TEST_F(CoreHandOverTest, Connect_StreamNotOpen_FailsOnlyAfterTheStartUp) {
  device_->stream_stays_open = false;
  ScriptedCamera camera(info(), "", "00", "ABCD1000");
  EXPECT_EQ(camera.Connect(), -1);
  ASSERT_NE(camera.serialSettings, nullptr);
  EXPECT_TRUE(camera.serialSettings->GetIsSupported());
  PvStream* const stream = camera.stream;
  camera.Disconnect();
  PvStream::Free(stream);
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
