// The change of range that tells what came of it.
#include "radiometry/RangeChange.h"

#include "tests/unit/radiometry/RadiometryTest.h"

namespace {

using keocam::RangeChangeEnd;

class RangeChangeTest : public RadiometryTest {
 protected:
  static constexpr auto kLow = CameraSerialSettings::LowRange;
  static constexpr auto kMiddle = CameraSerialSettings::MiddleRange;
  static constexpr auto kHigh = CameraSerialSettings::HighRange;

  static void replyToAll(const std::vector<uint8_t>& codes) {
    for (const uint8_t code : codes) replyTo(code, {});
  }

  Log takeSteps() {
    const std::string call = "PvDeviceSerialPort::Write ";
    Log steps = take({call, "sleep", "err", "out"});
    for (std::string& step : steps) {
      if (step.rfind(call, 0) == 0) step = "code " + step.substr(call.size() + 9, 2);
    }
    return steps;
  }
};

TEST_F(RangeChangeTest, Changed_ByTheMembersMessagesAndWaits) {
  addLens();
  core_.radiometryMode = true;
  replyToAll({10, 30, 142, 12});
  EXPECT_EQ(keocam::changeRange(core_, kHigh).end, RangeChangeEnd::Changed);
  EXPECT_EQ(core_.GetRangeMode(), kHigh);
  EXPECT_EQ(O, 754.0);
  EXPECT_EQ(Matm, CalculateM(atmosphericTemperature));
  EXPECT_FALSE(core_.radiometryHighResolutionMode);
  EXPECT_EQ(takeSteps(), (Log{"code 0a", "sleep 2 s", "code 1e", "sleep 1 s", "code 8e", "code 0c", "sleep 1 s"}));

  replyToAll({10, 142, 12});
  EXPECT_EQ(keocam::changeRange(core_, kLow).end, RangeChangeEnd::Changed);
  EXPECT_EQ(O, 342.0);
  EXPECT_TRUE(core_.radiometryHighResolutionMode);
  EXPECT_EQ(takeSteps(), (Log{"code 0a", "sleep 1 s", "code 8e", "code 0c", "sleep 1 s"}));
}

TEST_F(RangeChangeTest, WithoutCalibration_LowAndMiddleOnly) {
  replyToAll({10, 30, 12});
  EXPECT_EQ(keocam::changeRange(core_, kMiddle).end, RangeChangeEnd::Changed);
  EXPECT_EQ(core_.GetRangeMode(), kMiddle);
  takeSteps();
  EXPECT_EQ(keocam::changeRange(core_, kHigh).end, RangeChangeEnd::LensLacksRange);
  EXPECT_EQ(core_.GetRangeMode(), kMiddle);
  EXPECT_EQ(takeSteps(), Log{}) << "nothing sent, nothing printed";
}

TEST_F(RangeChangeTest, UnknownRangeOrLens) {
  EXPECT_EQ(keocam::changeRange(core_, static_cast<RangeModes>(3)).end, RangeChangeEnd::UnknownRange);
  addLens();
  currentLensNumber = 4;
  EXPECT_THROW(keocam::changeRange(core_, kHigh), std::out_of_range);
  EXPECT_EQ(takeSteps(), Log{});
}

TEST_F(RangeChangeTest, EveryFailure_IsToldWithItsStatus) {
  struct Case {
    std::vector<uint8_t> answered;
    RangeChangeEnd end;
    bool in_force;
  };
  const std::vector<Case> cases = {
      {{}, RangeChangeEnd::GainNotSet, false},
      {{10}, RangeChangeEnd::TableNotUsed, true},
      {{10, 30}, RangeChangeEnd::ResolutionNotSet, true},
      {{10, 30, 142}, RangeChangeEnd::FlatFieldNotDone, true},
  };
  addLens();
  core_.radiometryMode = true;
  for (const Case& each : cases) {
    for (const bool silent : {true, false}) {
      core_.rangeMode = kLow;
      O = 342.0;
      scripted::network().serial.replies.clear();
      replyToAll(each.answered);
      const std::vector<uint8_t> order = {10, 30, 142, 12};
      if (!silent) replyTo(order[each.answered.size()], {}, 3);
      const keocam::RangeChangeResult result = keocam::changeRange(core_, kMiddle);
      EXPECT_EQ(result.end, each.end);
      EXPECT_EQ(result.status, silent ? UNKNOWN_ERROR : CAM_RANGE_ERROR);
      EXPECT_EQ(core_.GetRangeMode(), each.in_force ? kMiddle : kLow);
      EXPECT_EQ(O, each.in_force ? 754.0 : 342.0) << "the model goes with the core's gain";
      EXPECT_EQ(takePrinted(), Log{});
    }
  }
}

}  // namespace
