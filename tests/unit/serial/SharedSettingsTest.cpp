// Settings that share one value on the core: invert and revert, and the isotherms.
#include "tests/unit/serial/CoreTest.h"

namespace {

class SharedSettingsTest : public CoreTest {
 protected:
  /// The replies to a setter that reads the isotherms `reads` times and then writes.
  static void replyToIsotherms(int reads) {
    for (int i = 0; i < reads; ++i) replyTo(35, kBlock);
    replyTo(35, {});
  }

  inline static const Bytes kBlock = {0x80, 0xFB, 0x01, 0x02, 0xFF, 0xFE};
};

TEST_F(SharedSettingsTest, InvertAndRevert_EveryWord) {
  for (unsigned int word = 0; word < 0x104; ++word) {
    const Bytes payload = {static_cast<uint8_t>(word >> 8), static_cast<uint8_t>(word & 0xFF)};
    replyTo(17, payload);
    EXPECT_EQ(core_.GetInvertVideo(), word == 1 || word == 3) << word;
    replyTo(17, payload);
    EXPECT_EQ(core_.GetRevertVideo(), word == 2 || word == 3) << word;
    EXPECT_EQ(takeRequests(), requests({{17, {}}, {17, {}}}));
  }
}

TEST_F(SharedSettingsTest, Invert_KeepsRevert) {
  for (const uint8_t held : Bytes{0, 1, 2, 3}) {
    for (const bool invert : {false, true}) {
      replyTo(17, {0x00, held});
      replyTo(17, {});
      core_.SetInvertVideo(invert);
      const bool revert = held >= 2;
      const uint8_t sent = revert ? (invert ? 3 : 2) : (invert ? 1 : 0);
      EXPECT_EQ(takeRequests(), requests({{17, {}}, {17, {0x00, sent}}})) << int{held} << invert;
    }
  }
}

TEST_F(SharedSettingsTest, Revert_KeepsInvert) {
  for (const uint8_t held : Bytes{0, 1, 2, 3}) {
    for (const bool revert : {false, true}) {
      replyTo(17, {0x00, held});
      replyTo(17, {});
      core_.SetRevertVideo(revert);
      const bool invert = held % 2 == 1;
      const uint8_t sent = invert ? (revert ? 3 : 1) : (revert ? 2 : 0);
      EXPECT_EQ(takeRequests(), requests({{17, {}}, {17, {0x00, sent}}})) << int{held} << revert;
    }
  }
}

TEST_F(SharedSettingsTest, InvertAndRevert_OtherUnknown_IsTakenForOff) {
  core_.SetInvertVideo(true);
  core_.SetRevertVideo(true);
  EXPECT_EQ(takeRequests(), requests({{17, {}}, {17, {0x00, 1}}, {17, {}}, {17, {0x00, 2}}}));
}

TEST_F(SharedSettingsTest, Isotherms_EachField) {
  for (int i = 0; i < 4; ++i) replyTo(35, kBlock);
  EXPECT_EQ(core_.GetIsothermThresholdUnit(), ThresholdUnits{0});
  EXPECT_EQ(core_.GetIsothermThresholdLower(), -5);
  EXPECT_EQ(core_.GetIsothermThresholdMiddle(), 0x0102);
  EXPECT_EQ(core_.GetIsothermThresholdUpper(), -2);
  EXPECT_EQ(takeRequests(), requests({{35, {}}, {35, {}}, {35, {}}, {35, {}}}));
}

TEST_F(SharedSettingsTest, IsothermUnit_EveryFlagByte) {
  for (unsigned int flag = 0; flag < 256; ++flag) {
    replyTo(35, {static_cast<uint8_t>(flag), 0, 0, 0, 0, 0});
    EXPECT_EQ(core_.GetIsothermThresholdUnit(), ThresholdUnits{flag < 0x80 ? 1U : 0U}) << flag;
  }
}

TEST_F(SharedSettingsTest, IsothermUnit_KeepsTheThresholds) {
  for (const uint8_t unit : Bytes{0, 1}) {
    replyToIsotherms(3);
    core_.SetIsothermThresholdUnit(ThresholdUnits{unit});
    Bytes block = kBlock;
    block[0] = unit == 0 ? 0x80 : 0x00;
    EXPECT_EQ(takeRequests(), requests({{35, {}}, {35, {}}, {35, {}}, {35, block}}));
  }
}

TEST_F(SharedSettingsTest, IsothermUnit_OutsideItsList_SendsNothing) {
  core_.SetIsothermThresholdUnit(ThresholdUnits{2});
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(SharedSettingsTest, IsothermLower_KeepsTheRest_AndSendsItsLowByte) {
  for (const int value : {0x7F, -1, 0x1234}) {
    replyToIsotherms(3);
    EXPECT_EQ(core_.SetIsothermThresholdLower(static_cast<short>(value)), CAM_OK);
    Bytes block = kBlock;
    block[1] = static_cast<uint8_t>(value & 0xFF);
    EXPECT_EQ(takeRequests(), requests({{35, {}}, {35, {}}, {35, {}}, {35, block}}));
  }
}

TEST_F(SharedSettingsTest, IsothermMiddle_KeepsTheRest) {
  replyToIsotherms(3);
  EXPECT_EQ(core_.SetIsothermThresholdMiddle(-3), CAM_OK);
  EXPECT_EQ(takeRequests(), requests({{35, {}}, {35, {}}, {35, {}}, {35, {0x80, 0xFB, 0xFF, 0xFD, 0xFF, 0xFE}}}));
}

TEST_F(SharedSettingsTest, IsothermUpper_KeepsTheRest) {
  replyToIsotherms(3);
  EXPECT_EQ(core_.SetIsothermThresholdUpper(0x1234), CAM_OK);
  EXPECT_EQ(takeRequests(), requests({{35, {}}, {35, {}}, {35, {}}, {35, {0x80, 0xFB, 0x01, 0x02, 0x12, 0x34}}}));
}

TEST_F(SharedSettingsTest, Isotherms_RestUnknown_IsTakenForZerosAndPercent) {
  EXPECT_EQ(core_.SetIsothermThresholdUpper(0x1234), UNKNOWN_ERROR);
  EXPECT_EQ(takeRequests(), requests({{35, {}}, {35, {}}, {35, {}}, {35, {0, 0, 0, 0, 0x12, 0x34}}}));
}

}  // namespace
