// The start-up of a core: every step, every message, and what ends it early.
#include <stdexcept>

#include "calibration/Calibration.h"
#include "tests/unit/camera/AnsweringCore.h"
#include "tests/unit/radiometry/RadiometryTest.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class StartUpTest : public CoreTest {
 protected:
  ~StartUpTest() override { CamSpeed = {}; }

  static std::string line(const std::string& message, const char* stream = "out") {
    return std::string(stream) + ": CameraSerialSettings::SetDefault(): " + message + "\\n";
  }
  static void add(Log& log, const Log& events) { log.insert(log.end(), events.begin(), events.end()); }
  /// The function codes of the requests since the last call; forgets all other events.
  static std::vector<int> takeCodes() {
    std::vector<int> codes;
    for (const std::string& request : takeRequests()) codes.push_back(std::stoi(request.substr(9, 2), nullptr, 16));
    return codes;
  }

  static const Log kFeatures;

  ModelAtLoad model_;
  AnsweringCore answering_;
};

const StartUpTest::Log StartUpTest::kFeatures = {
    "PvDevice::GetParameters",
    "PvGenParameterArray::SetEnumValue PixelFormat Mono14",
    "PvGenParameterArray::SetEnumValue TestPattern Off",
    "PvGenParameterArray::SetEnumValue BulkSelector Bulk0",
    "PvGenParameterArray::SetEnumValue BulkMode UART",
    "PvGenParameterArray::SetEnumValue BulkBaudRate Baud57600",
    "PvGenParameterArray::SetEnumValue BulkNumOfStopBits One",
    "PvGenParameterArray::SetEnumValue BulkParity None",
    "PvGenParameterArray::SetBooleanValue BulkLoopback false",
};

TEST_F(StartUpTest, SetDefault_RadiometricCore_EveryStepInItsOrder) {
  emissivity = 0.8;
  atmosphericTemperature = 300.0;
  reflectedTemperature = 310.0;
  humidity = 0.9;
  core_.SetDebugMessages(true);
  EXPECT_EQ(core_.SetDefault(), 0);

  Log expected = {"PvDevice::IsConnected", line("Setting default settings")};
  add(expected, kFeatures);
  add(expected, writeEvents(0));
  add(expected, {line("Checking part number")});
  add(expected, readEvents(102));
  add(expected, {line("Camera part number: 46640001X-FRNLX"), line("Resolution: 640x512"),
                 "PvGenParameterArray::SetIntegerValue Width 640", "PvGenParameterArray::SetIntegerValue Height 512",
                 line("Checking for radiometry: 1"), line("Setting radiometry")});
  add(expected, writeEvents(142, {0x00, 0x40, 0x00, 0x01}));
  add(expected, writeEvents(229, {0x01, 0x00, 0x19, 0x99}));  // what was in force until now
  add(expected, writeEvents(229, {0x01, 0x07, 0x0E, 0x10}));
  add(expected, writeEvents(229, {0x01, 0x05, 0x0A, 0x7D}));
  add(expected, writeEvents(142, {0x00, 0x10, 0x00, 0x01}));
  add(expected, writeEvents(142, {0x00, 0x10, 0x00, 0x01}));
  add(expected, {line("Setting default values for emissivity, atmosferic temperature, reflected temperature and "
                      "humidity")});
  add(expected, writeEvents(229, {0x01, 0x00, 0x1E, 0x66}));
  add(expected, writeEvents(229, {0x01, 0x05, 0x07, 0xD0}));
  add(expected, writeEvents(229, {0x01, 0x07, 0x07, 0xD0}));
  add(expected, {line("Setting FFC mode to AUTO")});
  add(expected, writeEvents(11, {0x00, 0x01}));
  add(expected, {line("Setting XP BUS mode to CMOS")});
  add(expected, writeEvents(18, {0x03, 0x02}));
  add(expected, {line("Setting digital depth to 14bit")});
  add(expected, writeEvents(18, {0x06, 0x00}));
  add(expected, {line("Setting Range mode to low ")});
  add(expected, writeEvents(10, {0x00, 0x02}));
  add(expected, {"sleep 1 s"});
  add(expected, writeEvents(12));
  add(expected, writeEvents(142, {0x00, 0x10, 0x00, 0x01}));
  add(expected, {"sleep 1 s", "sleep 1 s", line("Doing FFC")});
  add(expected, readEvents(32, {0x00, 0x00}));
  add(expected, writeEvents(12));
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
  EXPECT_THAT(takePrinted(), ElementsAre(line("Setting default settings")));
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
  humidity = 0.9;
  core_.isRadiometric = true;  // of another core before
  core_.SetDebugMessages(true);
  EXPECT_EQ(core_.SetDefault(), 0);
  const Log printed = log().of({"out"});
  EXPECT_THAT(printed, Contains(line("Checking for radiometry: 0")));
  EXPECT_THAT(printed, Not(Contains(line("Setting radiometry"))));
  EXPECT_THAT(printed, Contains(line("Resolution: 320x256")));
  EXPECT_THAT(takeCodes(), ElementsAre(0, 102, 11, 18, 18, 10, 12, 32, 12));
  EXPECT_FALSE(core_.GetIsRadiometric());
  EXPECT_FALSE(core_.GetRadiometryMode());
  EXPECT_EQ(core_.GetEmissivity(), 0.95);
  EXPECT_EQ(core_.GetHumidity(), 0.5);
}

TEST_F(StartUpTest, SetDefault_SpeedOfTwo_SetsTheVideoStandardBeforeTheSize) {
  for (const bool set : {true, false}) {
    SCOPED_TRACE(set ? "set" : "not set, and looked at all the same");
    CamSpeed = {set, 2};
    EXPECT_EQ(core_.SetDefault(), 0);
    const Log events = log().of({"PvGenParameterArray::SetInteger", "PvDeviceSerialPort::Write"});
    ASSERT_GE(events.size(), 6u);
    EXPECT_EQ(events[2], "PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(114, {0x00, 0x04})));
    EXPECT_EQ(events[3], "PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(12, {})));
    EXPECT_EQ(events[4], "PvGenParameterArray::SetIntegerValue Width 640");
    log().clear();
  }
}

TEST_F(StartUpTest, SetDefault_OtherSpeeds_LeaveTheVideoStandard) {
  for (const int32_t speed : {0, 1, 3, -2}) {
    CamSpeed = {true, speed};
    EXPECT_EQ(core_.SetDefault(), 0);
    EXPECT_THAT(takeCodes(), Not(Contains(114))) << speed;
  }
}

TEST_F(StartUpTest, SetDefault_NotConnected_SaysSoAndTouchesNothing) {
  scripted_device_->stays_connected = false;
  EXPECT_EQ(core_.SetDefault(), -1);
  EXPECT_THAT(takeAll(), ElementsAre("PvDevice::IsConnected", line("Camera device not connected", "err")));

  CameraSerialSettings without_device(nullptr, kPort);
  EXPECT_EQ(without_device.SetDefault(), -1);
  EXPECT_THAT(takeAll(), ElementsAre(line("Camera device not connected", "err")));
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
  EXPECT_EQ(features, kFeatures) << "and no size";
  Log printed = log().of({"out", "err"});
  ASSERT_GE(printed.size(), 2u);
  EXPECT_EQ(printed.back(), line("Camera communication error", "err"));
  EXPECT_THAT(printed, Contains(line("Checking part number")));
  EXPECT_THAT(takeCodes(), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 102));
  EXPECT_FALSE(core_.GetIsSupported());
}

TEST_F(StartUpTest, SetDefault_PartNumberRefused_EndsTheSame) {
  answering_.statuses[102] = 3;
  EXPECT_EQ(core_.SetDefault(), -1);
  EXPECT_EQ(log().of({"err"}).back(), line("Camera communication error", "err"));
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
  EXPECT_THAT(log().of({"out"}), Contains(line("Resolution: -1x-1")));
  EXPECT_TRUE(core_.GetIsRadiometric()) << "its letter tells all the same";
  EXPECT_FALSE(core_.GetIsSupported());
}

TEST_F(StartUpTest, SetDefault_AlternativeForm_TellsTheCoresTextAndUsesTheOther) {
  answering_.part_number = "50000081H-FRNLS";
  core_.SetDebugMessages(true);
  EXPECT_EQ(core_.SetDefault(), 0);
  EXPECT_THAT(log().of({"out"}), Contains(line("Camera part number: 50000081H-FRNLS")));
  EXPECT_THAT(log().of({"out"}), Contains(line("Resolution: 640x512")));
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
