// The start-up of a core: every step, every message, and what ends it early.
#include <algorithm>
#include <functional>
#include <stdexcept>

#include "tests/unit/camera/AnsweringCoreTest.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class StartUpTest : public AnsweringCoreTest<CoreTest> {
 protected:
  /// The function codes of the requests since the last call; forgets all other events.
  static std::vector<int> takeCodes() {
    std::vector<int> codes;
    for (const std::string& request : takeRequests()) codes.push_back(std::stoi(request.substr(9, 2), nullptr, 16));
    return codes;
  }
  static std::string write(uint8_t code, const Bytes& payload = {}) {
    return "PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(code, payload));
  }
};

TEST_F(StartUpTest, SetDefault_RadiometricCore_EveryStepInItsOrder) {
  emissivity = 0.8;
  atmosphericTemperature = 300.0;
  reflectedTemperature = 310.0;
  humidity = 0.9;
  core_.SetDebugMessages(true);
  EXPECT_EQ(core_.SetDefault(), 0);

  const Events expected = joined({
      {"PvDevice::IsConnected", startUpLine("Setting default settings")},
      featureEvents(),
      writeEvents(0),
      {startUpLine("Checking part number")},
      readEvents(102),
      {startUpLine("Camera part number: 46640001X-FRNLX"), startUpLine("Resolution: 640x512"),
       "PvGenParameterArray::SetIntegerValue Width 640", "PvGenParameterArray::SetIntegerValue Height 512",
       startUpLine("Checking for radiometry: 1"), startUpLine("Setting radiometry")},
      radiometricStartUpEvents(),
  });
  EXPECT_EQ(takeAll(), expected);

  EXPECT_TRUE(core_.GetIsRadiometric());
  EXPECT_TRUE(core_.GetRadiometryMode());
  EXPECT_TRUE(core_.GetIsSupported());
  EXPECT_EQ(core_.GetEmissivity(), 0.95);
  EXPECT_EQ(core_.GetAtmosphericTemperatureK(), 293.15);
  EXPECT_EQ(core_.GetReflectedTemperatureK(), 293.15);
  EXPECT_EQ(core_.GetHumidity(), 0.5);
  EXPECT_EQ(core_.GetRangeMode(), CameraSerialSettings::LowRange);
}

TEST_F(StartUpTest, SetDefault_WithoutDebugMessages_PrintsOneLine) {
  EXPECT_EQ(core_.SetDefault(), 0);
  EXPECT_THAT(takePrinted(), ElementsAre(startUpLine("Setting default settings")));
}

TEST_F(StartUpTest, SetDefault_DebugMessages_ChangeNothingElse) {
  const Log effects = {"Pv", "sleep", "usleep", "err"};
  core_.SetDefault();
  const Log quiet = take(effects);
  core_.SetDebugMessages(true);
  core_.SetDefault();
  EXPECT_EQ(take(effects), quiet);
}

TEST_F(StartUpTest, SetDefault_CoreWithoutRadiometry_GetsTheObjectParametersButNoRadiometry) {
  answering_.part_number = "46324007H-FPNLX";
  emissivity = 0.8;
  atmosphericTemperature = 300.0;
  reflectedTemperature = 310.0;
  humidity = 0.9;
  core_.isRadiometric = true;  // of another core before
  core_.SetDebugMessages(true);
  EXPECT_EQ(core_.SetDefault(), 0);
  const Log printed = log().of({"out"});
  EXPECT_THAT(printed, Contains(startUpLine("Checking for radiometry: 0")));
  EXPECT_THAT(printed, Not(Contains(startUpLine("Setting radiometry"))));
  EXPECT_THAT(printed, Contains(startUpLine("Resolution: 320x256")));
  EXPECT_THAT(takeCodes(), ElementsAre(0, 102, 11, 18, 18, 10, 12, 32, 12));
  EXPECT_FALSE(core_.GetIsRadiometric());
  EXPECT_FALSE(core_.GetRadiometryMode());
  EXPECT_EQ(core_.GetEmissivity(), 0.95);
  EXPECT_EQ(core_.GetAtmosphericTemperatureK(), 293.15);
  EXPECT_EQ(core_.GetReflectedTemperatureK(), 293.15);
  EXPECT_EQ(core_.GetHumidity(), 0.5);
}

TEST_F(StartUpTest, SetDefault_SpeedOfTwo_SetsTheVideoStandardBeforeItTellsAndSetsTheSize) {
  core_.SetDebugMessages(true);
  for (const bool set : {true, false}) {
    SCOPED_TRACE(set ? "set" : "not set, and looked at all the same");
    CamSpeed = {set, 2};
    EXPECT_EQ(core_.SetDefault(), 0);
    Log events = take({"out", "PvGenParameterArray::SetInteger", "PvDeviceSerialPort::Write"});
    ASSERT_GE(events.size(), 10u);
    events.resize(10);
    EXPECT_THAT(
        events,
        ElementsAre(startUpLine("Setting default settings"), write(0), startUpLine("Checking part number"), write(102),
                    write(114, {0x00, 0x04}), write(12), startUpLine("Camera part number: 46640001X-FRNLX"),
                    startUpLine("Resolution: 640x512"), "PvGenParameterArray::SetIntegerValue Width 640",
                    "PvGenParameterArray::SetIntegerValue Height 512"));
  }
}

TEST_F(StartUpTest, SetDefault_OtherSpeeds_LeaveTheVideoStandard) {
  for (const int32_t speed : {0, 1, 3, -2}) {
    CamSpeed = {true, speed};
    EXPECT_EQ(core_.SetDefault(), 0);
    EXPECT_THAT(takeCodes(), Not(Contains(114))) << speed;
  }
}

TEST_F(StartUpTest, SetDefault_NotConnected_SaysSoAndChangesNothing) {
  scripted_device_->stays_connected = false;
  CameraSerialSettings without_device(nullptr, kPort);
  const std::pair<CameraSerialSettings*, Log> cores[] = {{&core_, {"PvDevice::IsConnected"}}, {&without_device, {}}};
  for (const auto& [core, asked] : cores) {
    for (const bool flags : {true, false}) {
      core->isSupported = flags;
      core->isRadiometric = flags;
      core->cameraPartNumber = "50000081H-FRNLS";
      core->partNumber = "46640019H-SPNLX";
      emissivity = 0.8;
      CamSpeed = {true, 2};
      EXPECT_EQ(core->SetDefault(), -1);
      EXPECT_EQ(takeAll(), joined({asked, {startUpLine("Camera device not connected", "err")}}));
      EXPECT_EQ(core->GetIsSupported(), flags);
      EXPECT_EQ(core->GetIsRadiometric(), flags);
      EXPECT_EQ(core->GetCameraPartNumber(), "50000081H-FRNLS");
      EXPECT_EQ(core->GetPartNumber(), "46640019H-SPNLX");
      EXPECT_EQ(emissivity, 0.8);
      EXPECT_EQ(CamSpeed.speed, 2);
    }
  }
}

TEST_F(StartUpTest, SetDefault_CoreThatWakesLate_IsAskedNoMoreThanItTakes) {
  for (const int unheard : {0, 1, 9, 10}) {
    answering_.unheard = unheard;
    EXPECT_EQ(core_.SetDefault(), 0) << unheard;
    const std::vector<int> codes = takeCodes();
    EXPECT_EQ(std::count(codes.begin(), codes.end(), 0), std::min(unheard + 1, 10)) << unheard;
    EXPECT_TRUE(core_.GetIsSupported());
  }
}

TEST_F(StartUpTest, SetDefault_SilentCore_IsAskedTenTimesAndThenForItsPartNumber) {
  answering_.unheard = 1000;
  core_.SetDebugMessages(true);
  EXPECT_EQ(core_.SetDefault(), -1);
  const Log features = log().of({"PvDevice::GetParameters", "PvGenParameterArray"});
  EXPECT_EQ(features, featureEvents()) << "and no size";
  Log printed = log().of({"out", "err"});
  ASSERT_GE(printed.size(), 2u);
  EXPECT_EQ(printed.back(), startUpLine("Camera communication error", "err"));
  EXPECT_THAT(printed, Contains(startUpLine("Checking part number")));
  EXPECT_THAT(takeCodes(), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 102));
  EXPECT_FALSE(core_.GetIsSupported());
}

TEST_F(StartUpTest, SetDefault_CommunicationError_KeepsAllButTheSupport) {
  const auto silence = [this] { answering_.unheard = 1000; };
  const auto refusal = [this] { answering_.statuses[102] = 3; };
  for (const std::function<void()>& fail : {std::function<void()>(silence), std::function<void()>(refusal)}) {
    for (const bool radiometric : {true, false}) {
      core_.isSupported = true;
      core_.isRadiometric = radiometric;
      core_.cameraPartNumber = "50000081H-FRNLS";
      core_.partNumber = "46640019H-SPNLX";
      emissivity = 0.8;
      fail();
      EXPECT_EQ(core_.SetDefault(), -1);
      EXPECT_EQ(core_.GetIsRadiometric(), radiometric);
      EXPECT_FALSE(core_.GetIsSupported());
      EXPECT_EQ(core_.GetCameraPartNumber(), "50000081H-FRNLS");
      EXPECT_EQ(core_.GetPartNumber(), "46640019H-SPNLX");
      EXPECT_EQ(emissivity, 0.8);
    }
    answering_.unheard = 0;
  }
}

TEST_F(StartUpTest, SetDefault_PartNumberRefused_EndsTheSame) {
  answering_.statuses[102] = 3;
  EXPECT_EQ(core_.SetDefault(), -1);
  EXPECT_EQ(log().of({"err"}).back(), startUpLine("Camera communication error", "err"));
  EXPECT_THAT(takeCodes(), ElementsAre(0, 102));
}

TEST_F(StartUpTest, SetDefault_SettersThatFail_StopNothing) {
  for (const int code : {0, 10, 11, 12, 18, 32, 142, 229}) answering_.statuses[static_cast<uint8_t>(code)] = 3;
  EXPECT_EQ(core_.SetDefault(), 0);
  std::vector<int> expected(10, 0);
  for (const int code : {102, 142, 229, 229, 229, 142, 142, 11, 18, 18, 10, 12, 142, 32, 12}) expected.push_back(code);
  EXPECT_EQ(takeCodes(), expected);
}

TEST_F(StartUpTest, SetDefault_UnknownPartNumber_SetsNoSizeAndGoesOn) {
  answering_.part_number = "46999099H-SRNLX";
  core_.SetDebugMessages(true);
  EXPECT_EQ(core_.SetDefault(), 0);
  EXPECT_THAT(
      log().of({"PvGenParameterArray::SetInteger"}),
      ElementsAre("PvGenParameterArray::SetIntegerValue Width -1", "PvGenParameterArray::SetIntegerValue Height -1"));
  EXPECT_THAT(log().of({"out"}), Contains(startUpLine("Resolution: -1x-1")));
  EXPECT_TRUE(core_.GetIsRadiometric()) << "its letter tells all the same";
  EXPECT_FALSE(core_.GetIsSupported());
}

TEST_F(StartUpTest, SetDefault_AlternativeForm_TellsTheCoresTextAndUsesTheOther) {
  answering_.part_number = "50000081H-FRNLS";
  core_.SetDebugMessages(true);
  EXPECT_EQ(core_.SetDefault(), 0);
  EXPECT_THAT(log().of({"out: CameraSerialSettings::SetDefault(): Camera part number"}),
              ElementsAre(startUpLine("Camera part number: 50000081H-FRNLS")));
  EXPECT_THAT(log().of({"out"}), Contains(startUpLine("Resolution: 640x512")));
  EXPECT_EQ(core_.GetPartNumber(), "46640019H-SPNLX");
  EXPECT_FALSE(core_.GetIsRadiometric());
}

TEST_F(StartUpTest, SetDefault_PartNumberTooShort_ThrowsWhereItIsFirstMissed) {
  answering_.part_number = "4664";
  EXPECT_THROW(core_.SetDefault(), std::out_of_range);
  EXPECT_THAT(log().of({"PvGenParameterArray::SetInteger"}), IsEmpty());
  log().clear();
  answering_.part_number = "46640001X-F";
  EXPECT_THROW(core_.SetDefault(), std::out_of_range);
  EXPECT_THAT(
      log().of({"PvGenParameterArray::SetInteger"}),
      ElementsAre("PvGenParameterArray::SetIntegerValue Width 640", "PvGenParameterArray::SetIntegerValue Height 512"));
  EXPECT_THAT(takeCodes(), ElementsAre(0, 102));
}

TEST_F(StartUpTest, SetDefault_Again_RestoresTheDefaults) {
  core_.SetDefault();
  core_.SetHumidity(0.7);
  core_.SetEmissivity(0.6);
  EXPECT_EQ(core_.SetDefault(), 0);
  EXPECT_EQ(core_.GetHumidity(), 0.5);
  EXPECT_EQ(core_.GetEmissivity(), 0.95);
}

}  // namespace
