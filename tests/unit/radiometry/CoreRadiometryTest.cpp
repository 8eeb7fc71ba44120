// The core's own radiometry, with value and status.
#include "radiometry/CoreRadiometry.h"

#include "tests/unit/radiometry/RadiometryTest.h"

namespace {

namespace parameters = keocam::core_parameters;

class CoreRadiometryTest : public RadiometryTest {
 protected:
  static void replyWithPartNumber(const std::string& text) {
    Bytes payload(text.begin(), text.end());
    payload.resize(32, '^');
    replyTo(102, payload);
  }

  /// The answers of a radiometric core in low gain, with radiometry mode on.
  static void replyWithState() {
    replyWithPartNumber("46640019H-SRNLX");
    replyTo(10, {0x00, 0x01});
    replyTo(142, {0x00, 0x01});
    replyTo(142, {0x00, 0x00});
    replyTo(229, {0x10, 0x00});
    replyTo(229, {0x09, 0xC4});
    replyTo(229, {0x03, 0xE8});
  }
};

TEST_F(CoreRadiometryTest, Parameters_AreReadInTheirUnits) {
  replyTo(229, {0x18, 0x00});
  EXPECT_EQ(keocam::readCoreObjectParameter(core_, parameters::emissivity).value, 0.75);
  replyTo(229, {0x08, 0x1B});
  EXPECT_EQ(keocam::readCoreObjectParameter(core_, parameters::reflectedTemperature).value, 20.75);
  replyTo(229, {0x00, 0x01});
  EXPECT_EQ(keocam::readCoreObjectParameter(core_, parameters::atmosphericTemperature).value, 0.01);
  EXPECT_EQ(takeRequests(), requests({{229, {1, 0}}, {229, {1, 7}}, {229, {1, 5}}}));
  EXPECT_EQ(keocam::readCoreObjectParameter(core_, parameters::emissivity).status, UNKNOWN_ERROR);
  EXPECT_EQ(takePrinted(), Log{});
}

TEST_F(CoreRadiometryTest, Parameters_AreWrittenToTheNearestStep) {
  const std::vector<std::tuple<const keocam::CoreObjectParameter*, double, uint8_t, unsigned int>> cases = {
      {&parameters::emissivity, 0.95, 0, 7782},
      {&parameters::emissivity, 0.5, 0, 4096},
      {&parameters::emissivity, 1.0, 0, 8192},
      {&parameters::reflectedTemperature, 20.75, 7, 2075},
      {&parameters::reflectedTemperature, 0.0, 7, 0},
      {&parameters::atmosphericTemperature, 655.35, 5, 65535},
      {&parameters::atmosphericTemperature, 0.29, 5, 29},
  };
  for (const auto& [parameter, value, code, word] : cases) {
    replyTo(229, {});
    EXPECT_EQ(keocam::writeCoreObjectParameter(core_, *parameter, value), CAM_OK);
    EXPECT_EQ(takeRequests(),
              requests({{229, {1, code, static_cast<uint8_t>(word >> 8), static_cast<uint8_t>(word)}}}));
  }
  EXPECT_EQ(emissivity, 0.95);
}

TEST_F(CoreRadiometryTest, Parameters_BeyondTheirBounds_AreNotSent) {
  for (const double value : {0.4999, 1.0001, kNaN, kInfinity}) {
    EXPECT_EQ(keocam::writeCoreObjectParameter(core_, parameters::emissivity, value), CAM_RANGE_ERROR);
  }
  for (const double value : {-0.01, 655.36, kNaN, -kInfinity}) {
    EXPECT_EQ(keocam::writeCoreObjectParameter(core_, parameters::reflectedTemperature, value), CAM_RANGE_ERROR);
  }
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(CoreRadiometryTest, Parameters_ByName) {
  std::vector<std::string> names;
  for (const auto* const parameter : keocam::allCoreObjectParameters()) {
    names.emplace_back(parameter->name);
    EXPECT_EQ(keocam::findCoreObjectParameter(parameter->name), parameter);
  }
  EXPECT_EQ(names, (std::vector<std::string>{"emissivity", "reflected-temperature", "atmospheric-temperature"}));
  EXPECT_EQ(keocam::findCoreObjectParameter("distance"), nullptr);
}

TEST_F(CoreRadiometryTest, ModeAndResolution_AreKnownOnceWritten) {
  EXPECT_EQ(keocam::writeRadiometryMode(core_, true), UNKNOWN_ERROR);
  EXPECT_FALSE(core_.radiometryMode);
  takeAll();
  replyTo(142, {});
  replyTo(142, {});
  EXPECT_EQ(keocam::writeRadiometryMode(core_, true), CAM_OK);
  EXPECT_EQ(keocam::writeHighResolution(core_, true), CAM_OK);
  EXPECT_TRUE(core_.radiometryMode && core_.radiometryHighResolutionMode);
  EXPECT_EQ(takeRequests(), requests({{142, {0, 0x40, 0, 1}}, {142, {0, 0x10, 0, 1}}}));
  replyTo(142, {0, 1});
  replyTo(142, {0, 0});
  EXPECT_TRUE(keocam::readRadiometryMode(core_).value);
  EXPECT_FALSE(keocam::readHighResolution(core_).value);
  EXPECT_EQ(takeRequests(), requests({{142, {0, 0x40}}, {142, {0, 0x10}}}));
}

TEST_F(CoreRadiometryTest, Gain_IsHighUnlessTheModeIsLow) {
  for (const auto& [mode, high] : std::vector<std::pair<uint8_t, bool>>{{0, true}, {1, false}, {2, true}, {3, true}}) {
    replyTo(10, {0x00, mode});
    const auto gain = keocam::readHighGain(core_);
    EXPECT_TRUE(gain.ok());
    EXPECT_EQ(gain.value, high) << "mode " << int{mode};
  }
  EXPECT_FALSE(keocam::readHighGain(core_).ok()) << "nothing was answered";
}

TEST_F(CoreRadiometryTest, AdoptedState_IsTheCores) {
  replyWithState();
  EXPECT_EQ(keocam::adoptCoreState(core_), CAM_OK);
  EXPECT_TRUE(core_.isRadiometric && core_.radiometryMode);
  EXPECT_FALSE(core_.radiometryHighResolutionMode);
  EXPECT_EQ(core_.GetRangeMode(), CameraSerialSettings::MiddleRange);
  EXPECT_EQ(emissivity, 0.5);
  EXPECT_EQ(reflectedTemperature, 25.0 + 273.15);
  EXPECT_EQ(atmosphericTemperature, 10.0 + 273.15);
  EXPECT_EQ(O, 754.0);
  EXPECT_EQ(Mbgr, CalculateM(25.0 + 273.15));
  EXPECT_EQ(TauAtm, CalculateTauAtm());
  replyWithState();
  EXPECT_EQ(keocam::adoptCoreState(core_, CameraSerialSettings::HighRange), CAM_OK);
  EXPECT_EQ(core_.GetRangeMode(), CameraSerialSettings::HighRange);
}

TEST_F(CoreRadiometryTest, AdoptedState_OfACoreThatIsNotRadiometric) {
  core_.isRadiometric = core_.radiometryMode = true;
  emissivity = 0.7;
  replyWithPartNumber("46640019H-SPNLX");
  replyTo(10, {0x00, 0x02});
  EXPECT_EQ(keocam::adoptCoreState(core_), CAM_OK);
  EXPECT_FALSE(core_.isRadiometric || core_.radiometryMode);
  EXPECT_EQ(core_.GetRangeMode(), CameraSerialSettings::LowRange);
  EXPECT_EQ(emissivity, 0.7);
  EXPECT_EQ(O, 342.0);
}

TEST_F(CoreRadiometryTest, AdoptedState_OnFailure_ChangesNothing) {
  for (std::size_t answers = 0; answers < 7; ++answers) {
    scripted::network().serial.replies.clear();
    replyWithState();
    scripted::network().serial.replies.resize(answers);
    EXPECT_EQ(keocam::adoptCoreState(core_), UNKNOWN_ERROR) << answers;
    EXPECT_FALSE(core_.isRadiometric || core_.radiometryMode) << answers;
    EXPECT_EQ(core_.GetRangeMode(), CameraSerialSettings::LowRange) << answers;
    EXPECT_EQ(emissivity, 0.95) << answers;
    EXPECT_EQ(O, 0.0) << answers;
  }
}

}  // namespace
