// Radiometry mode, in which the core sends temperatures, and its resolution.
#include "tests/unit/radiometry/RadiometryTest.h"

namespace {

class RadiometryModeTest : public RadiometryTest {
 protected:
  static std::pair<uint8_t, Bytes> resolution(uint8_t on) { return {142, {0x00, 0x10, 0x00, on}}; }
  static std::pair<uint8_t, Bytes> mode(uint8_t on) { return {142, {0x00, 0x40, 0x00, on}}; }

  static Log switchingOn(uint8_t high) {
    return requests({mode(1),
                     {229, {0x01, 0x00, 0x1E, 0x66}},
                     {229, {0x01, 0x07, 0x07, 0xD0}},
                     {229, {0x01, 0x05, 0x07, 0xD0}},
                     resolution(high)});
  }
};

TEST_F(RadiometryModeTest, NotRadiometric_IsOff_AndNothingIsSent) {
  core_.radiometryMode = true;
  for (const bool on : {true, false}) {
    core_.SetRadiometryMode(on);
    EXPECT_FALSE(core_.GetRadiometryMode());
  }
  EXPECT_FALSE(core_.GetIsRadiometric());
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(RadiometryModeTest, On_TellsTheParameters_AndChoosesTheResolutionByRange) {
  core_.isRadiometric = true;
  // A range that there is not counts as the low one.
  for (const unsigned int range : {0U, 1U, 2U, 7U}) {
    core_.rangeMode = static_cast<RangeModes>(range);
    core_.SetRadiometryMode(true);
    const bool high = range != 1 && range != 2;
    EXPECT_EQ(takeRequests(), switchingOn(high ? 1 : 0)) << range;
    EXPECT_TRUE(core_.GetRadiometryMode());
    EXPECT_EQ(core_.radiometryHighResolutionMode, high) << range;
    EXPECT_EQ(core_.radiometrySelector, 0U) << range;
  }
}

TEST_F(RadiometryModeTest, Off_SendsOneMessage) {
  core_.isRadiometric = true;
  core_.radiometryMode = core_.radiometryHighResolutionMode = true;
  core_.SetRadiometryMode(false);
  EXPECT_EQ(takeRequests(), requests({mode(0)}));
  EXPECT_FALSE(core_.GetRadiometryMode());
  EXPECT_TRUE(core_.radiometryHighResolutionMode);
  EXPECT_EQ(core_.radiometrySelector, 1U);
}

TEST_F(RadiometryModeTest, Resolution_IsSentToAnyCore) {
  core_.SetRadiometryHighResolutionMode(true);
  EXPECT_TRUE(core_.radiometryHighResolutionMode);
  core_.SetRadiometryHighResolutionMode(false);
  EXPECT_FALSE(core_.radiometryHighResolutionMode);
  EXPECT_EQ(takeRequests(), requests({resolution(1), resolution(0)}));
}

TEST_F(RadiometryModeTest, CoreSilent_TheModeIsTakenForSet) {
  core_.isRadiometric = true;
  core_.SetRadiometryMode(true);
  EXPECT_TRUE(core_.GetRadiometryMode());
  EXPECT_TRUE(core_.radiometryHighResolutionMode);
}

TEST_F(RadiometryModeTest, AskingForTheResolution_ChangesNoFlag) {
  replyTo(142, {0x00, 0x01});
  EXPECT_TRUE(core_.GetRadiometryHighResolutionMode());
  EXPECT_FALSE(core_.radiometryHighResolutionMode);
}

}  // namespace
