// Changes of range: messages, waits and what is in force afterwards.
#include "tests/unit/radiometry/RadiometryTest.h"

namespace {

class TemperatureRangesTest : public RadiometryTest {
 protected:
  static constexpr auto kLow = CameraSerialSettings::LowRange;
  static constexpr auto kMiddle = CameraSerialSettings::MiddleRange;
  static constexpr auto kHigh = CameraSerialSettings::HighRange;

  static std::string sent(uint8_t code, const Bytes& payload) {
    return "PvDeviceSerialPort::Write " + scripted::hex(core_frames::frame(code, payload));
  }
  static std::string gain(uint8_t value) { return sent(10, {0x00, value}); }
  static std::string slot(uint8_t value) { return sent(30, {0x00, value}); }
  static std::string flatField() { return sent(12, {}); }
  static std::string resolution(uint8_t high) { return sent(142, {0x00, 0x10, 0x00, high}); }

  Log takeSteps() { return take({"PvDeviceSerialPort::Write", "sleep"}); }

  static void expectConstants(bool low) {
    EXPECT_EQ(R, low ? 366544.0 : 56829.0);
    EXPECT_EQ(B, low ? 1428.0 : 1470.0);
    EXPECT_EQ(F, 1.0);
    EXPECT_EQ(O, low ? 342.0 : 754.0);
    EXPECT_EQ(J1, low ? 22.1396484 : 3.0694580078125);
    EXPECT_EQ(RThg, low ? 16556.0 : 18514.0);
    EXPECT_EQ(TauAtm, CalculateTauAtm());
    EXPECT_EQ(Matm, CalculateM(atmosphericTemperature));
    EXPECT_EQ(Mbgr, CalculateM(reflectedTemperature));
  }

  static inline const Log kRefusal = {
      "err: You can not set high range mode (+400 - +1500 [\xC2\xB0"
      "C]). Current lens is not capable of high range mode \\n"};
};

TEST_F(TemperatureRangesTest, Low_StepByStep) {
  addLens();
  core_.SetRangeMode(kLow);
  EXPECT_EQ(takeSteps(), (Log{gain(2), "sleep 1 s", flatField(), "sleep 1 s"}));
  EXPECT_EQ(core_.GetRangeMode(), kLow);
  expectConstants(true);
}

TEST_F(TemperatureRangesTest, MiddleAndHigh_StepByStep) {
  addLens();
  for (const RangeModes range : {kMiddle, kHigh}) {
    useLowRange();
    core_.SetRangeMode(range);
    EXPECT_EQ(takeSteps(), (Log{gain(1), "sleep 2 s", slot(1), "sleep 1 s", flatField(), "sleep 1 s"})) << range;
    EXPECT_EQ(core_.GetRangeMode(), range);
    expectConstants(false);
  }
}

TEST_F(TemperatureRangesTest, BackToLow_DoesNotChangeTheTable) {
  addLens();
  core_.SetRangeMode(kMiddle);
  takeAll();
  core_.SetRangeMode(kLow);
  EXPECT_EQ(takeSteps(), (Log{gain(2), "sleep 1 s", flatField(), "sleep 1 s"}));
}

TEST_F(TemperatureRangesTest, RadiometryMode_FollowsWithItsResolution) {
  addLens();
  core_.isRadiometric = core_.radiometryMode = true;
  for (const auto& [range, high] : std::vector<std::pair<RangeModes, uint8_t>>{{kLow, 1}, {kMiddle, 0}, {kHigh, 0}}) {
    core_.SetRangeMode(range);
    const Log steps = takeSteps();
    ASSERT_GE(steps.size(), 3U);
    EXPECT_EQ(Log(steps.end() - 3, steps.end()), (Log{flatField(), resolution(high), "sleep 1 s"})) << range;
    EXPECT_EQ(core_.radiometryHighResolutionMode, high == 1);
  }
}

TEST_F(TemperatureRangesTest, High_NeedsALensThatHasIt) {
  for (const bool with_calibration : {false, true}) {
    if (with_calibration) addLens(true, false);
    const double offset = O;
    core_.SetRangeMode(kHigh);
    EXPECT_EQ(takeAll(), kRefusal);
    EXPECT_EQ(core_.GetRangeMode(), kLow);
    EXPECT_EQ(O, offset);
  }
}

TEST_F(TemperatureRangesTest, WithoutCalibration_TheRangeInForceIsAppliedAgain) {
  core_.SetRangeMode(kMiddle);
  EXPECT_EQ(core_.GetRangeMode(), kLow);
  EXPECT_EQ(takeSteps(), (Log{gain(2), "sleep 1 s", flatField(), "sleep 1 s"}));
  expectConstants(true);
  core_.rangeMode = kMiddle;
  core_.SetRangeMode(kLow);
  EXPECT_EQ(core_.GetRangeMode(), kMiddle);
  expectConstants(false);
}

TEST_F(TemperatureRangesTest, UnknownRange_IsStored_AndTheLowOneApplied) {
  addLens();
  core_.isRadiometric = core_.radiometryMode = true;
  core_.SetRangeMode(static_cast<RangeModes>(7));
  EXPECT_EQ(core_.GetRangeMode(), 7U);
  // High resolution is for the low range itself only, unlike in SetRadiometryMode.
  EXPECT_EQ(takeSteps(), (Log{gain(2), "sleep 1 s", flatField(), resolution(0), "sleep 1 s"}));
  expectConstants(true);
  EXPECT_EQ(core_.calibrateTemperatureC(36.6), 36.6);
}

TEST_F(TemperatureRangesTest, SelectedLensThatThereIsNot_ThrowsInEveryRange) {
  addLens();
  currentLensNumber = 1;
  for (const RangeModes range : {kLow, kMiddle, kHigh}) EXPECT_THROW(core_.SetRangeMode(range), std::out_of_range);
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(TemperatureRangesTest, GainMode_LeavesTheRange) {
  addLens();
  core_.SetGainMode(kMiddle);
  EXPECT_EQ(core_.GetRangeMode(), kLow);
  // The table is that of the range in force, which is still the low one.
  EXPECT_EQ(takeSteps(), (Log{gain(1), "sleep 2 s", slot(0), "sleep 1 s", flatField()}));
  expectConstants(false);
  core_.SetGainMode(static_cast<RangeModes>(9));
  EXPECT_EQ(takeSteps(), (Log{gain(1), "sleep 2 s", slot(0), "sleep 1 s", flatField()})) << "as any but the low one";
  core_.SetGainMode(kLow);
  EXPECT_EQ(takeSteps(), (Log{gain(2), "sleep 1 s", flatField()}));
}

TEST_F(TemperatureRangesTest, ConstantsAreInForceBeforeTheWait_DerivedOnesAfterTheCorrection) {
  addLens();
  useLowRange();
  const double before = Matm;
  bool at_flat_field = false;
  scripted::network().serial.on_write = [&] {
    if (log().all().back() != flatField()) return;
    at_flat_field = true;
    EXPECT_EQ(RThg, 18514.0);
    EXPECT_EQ(Matm, before);
  };
  core_.SetGainMode(kMiddle);
  EXPECT_TRUE(at_flat_field);
  EXPECT_NE(Matm, before);
}

}  // namespace
