// Settings with their status, and the table of them.
#include "serial/CoreSettings.h"

#include <set>

#include "serial/ParameterTable.h"
#include "tests/unit/serial/CoreTest.h"

namespace {

using CoreSettingsTest = CoreTest;
namespace settings = keocam::settings;

TEST_F(CoreSettingsTest, Table_NamesAreUnique_AndFound) {
  std::set<std::string> names;
  for (const keocam::SettingRow* row : keocam::allSettings()) {
    EXPECT_TRUE(names.insert(row->name).second) << row->name;
    EXPECT_EQ(keocam::findSetting(row->name), row);
  }
  EXPECT_EQ(names.size(), 32u);
  EXPECT_EQ(keocam::findSetting("no-such-setting"), nullptr);
  EXPECT_EQ(keocam::findSetting(""), nullptr);
}

TEST_F(CoreSettingsTest, Table_EveryRowIsReadableAndWritableOnTheCore) {
  for (const keocam::SettingRow* row : keocam::allSettings()) {
    const keocam::ParameterRow* const parameter = keocam::findParameter(row->code);
    ASSERT_NE(parameter, nullptr) << row->name;
    EXPECT_EQ(parameter->reading.access, keocam::ReadAccess::Readable) << row->name;
    EXPECT_EQ(parameter->writing.access, keocam::WriteAccess::Writable) << row->name;
  }
}

TEST_F(CoreSettingsTest, EveryValue_SurvivesTheWire) {
  for (const keocam::SettingRow* row : keocam::allSettings()) {
    const keocam::SettingRange range = keocam::rangeOf(*row);
    ASSERT_LT(range.lowest, range.highest) << row->name;
    int walked = 0;
    for (int value = range.lowest; value <= range.highest; ++value) {
      if (!keocam::hasValue(*row, value)) continue;
      ++walked;
      keocam::SettingPayload payload{};
      keocam::encodeSetting(*row, value, payload);
      ASSERT_EQ(keocam::decodeSetting(*row, payload), value) << row->name;
    }
    EXPECT_GE(walked, 2) << row->name;
    EXPECT_FALSE(keocam::hasValue(*row, range.lowest - 1)) << row->name;
    EXPECT_FALSE(keocam::hasValue(*row, range.highest + 1)) << row->name;
  }
}

TEST_F(CoreSettingsTest, WritingASharedSetting_LeavesItsNeighbours) {
  for (const keocam::SettingRow* row : keocam::allSettings()) {
    if (!keocam::sharesItsValue(*row)) continue;
    for (const keocam::SettingRow* neighbour : keocam::allSettings()) {
      if (neighbour->code != row->code || neighbour == row) continue;
      keocam::SettingPayload payload{};
      keocam::encodeSetting(*neighbour, 1, payload);
      keocam::encodeSetting(*row, 1, payload);
      EXPECT_EQ(keocam::decodeSetting(*neighbour, payload), 1) << row->name << " " << neighbour->name;
      keocam::encodeSetting(*row, 0, payload);
      EXPECT_EQ(keocam::decodeSetting(*neighbour, payload), 1) << row->name << " " << neighbour->name;
    }
  }
}

TEST_F(CoreSettingsTest, Read_IsTheSameExchangeAsTheMembers) {
  replyTo(33, {0x00, 0x02});
  core_.GetExternalSync();
  const Log member = takeAll();
  replyTo(33, {0x00, 0x02});
  const auto sync = keocam::readSetting(core_, settings::externalSync);
  EXPECT_EQ(takeAll(), member);
  EXPECT_TRUE(sync.ok());
  EXPECT_EQ(sync.value, ExternalSyncModes::Master);
}

TEST_F(CoreSettingsTest, Read_DigitalOutput_TellsAllDepthsApart) {
  replyTo(18, {0x00, 0x03});
  const auto depth = keocam::readSetting(core_, settings::cmosBitDepth);
  EXPECT_EQ(depth.value, DigitalOutputDepth::Bits16YCbCr);
  EXPECT_EQ(takeRequests(), requests({{18, {0x08, 0x00}}}));
}

TEST_F(CoreSettingsTest, Read_AnalogVideo_TellsTheTruth) {
  replyTo(15, {0x00, 0x00});
  EXPECT_TRUE(keocam::readSetting(core_, settings::analogVideo).value);
  replyTo(15, {0x00, 0x02});
  EXPECT_FALSE(keocam::readSetting(core_, settings::analogVideo).value);
}

TEST_F(CoreSettingsTest, Read_EveryFailure_HasItsStatus_AndPrintsNothing) {
  EXPECT_EQ(keocam::readSetting(core_, settings::contrast).status, UNKNOWN_ERROR) << "no answer";
  replyTo(20, {}, 0x0A);
  EXPECT_EQ(keocam::readSetting(core_, settings::contrast).status, CAM_FEATURE_NOT_ENABLED);
  replyTo(21, {0x00, 0x07});
  EXPECT_EQ(keocam::readSetting(core_, settings::contrast).status, UNKNOWN_ERROR) << "an answer to something else";
  replyTo(20, {0x07});
  EXPECT_EQ(keocam::readSetting(core_, settings::contrast).status, CAM_BYTE_COUNT_ERROR);
  Bytes damaged = core_frames::frame(20, {0x00, 0x07});
  damaged[9] = 0x08;
  reply(damaged);
  const auto contrast = keocam::readSetting(core_, settings::contrast);
  EXPECT_EQ(contrast.status, CAM_CHECKSUM_ERROR);
  EXPECT_EQ(contrast.value, 0);
  scripted::network().serial.takes_writes = false;
  EXPECT_EQ(keocam::readSetting(core_, settings::contrast).status, UNKNOWN_ERROR);
  scripted::network().serial.opens = false;
  EXPECT_EQ(keocam::readSetting(core_, settings::contrast).status, UNKNOWN_ERROR);
  EXPECT_EQ(takePrinted(), Log{});
}

TEST_F(CoreSettingsTest, Write_IsTheSameExchangeAsTheMembers) {
  replyTo(20, {0x00, 0x07});
  core_.SetContrast(7);
  const Log member = takeAll();
  replyTo(20, {0x00, 0x07});
  EXPECT_EQ(keocam::writeSetting(core_, settings::contrast, static_cast<unsigned short>(7)), CAM_OK);
  EXPECT_EQ(takeAll(), member);
}

TEST_F(CoreSettingsTest, Write_EveryFailure_HasItsStatus_AndPrintsNothing) {
  const unsigned short value = 7;
  EXPECT_EQ(keocam::writeSetting(core_, settings::contrast, value), UNKNOWN_ERROR) << "no answer";
  replyTo(20, {}, 0x03);
  EXPECT_EQ(keocam::writeSetting(core_, settings::contrast, value), CAM_RANGE_ERROR);
  replyTo(21, {0x00, 0x07});
  EXPECT_EQ(keocam::writeSetting(core_, settings::contrast, value), UNKNOWN_ERROR) << "an answer to something else";
  Bytes damaged = core_frames::frame(20, {0x00, 0x07});
  damaged.back() = static_cast<uint8_t>(~damaged.back());
  reply(damaged);
  EXPECT_EQ(keocam::writeSetting(core_, settings::contrast, value), CAM_CHECKSUM_ERROR);
  EXPECT_EQ(takePrinted(), Log{});
}

TEST_F(CoreSettingsTest, Write_ValueThatTheSettingLacks_SendsNothing) {
  for (const keocam::SettingRow* row : keocam::allSettings()) {
    const keocam::SettingRange range = keocam::rangeOf(*row);
    EXPECT_EQ(keocam::writeSetting(core_, *row, range.highest + 1), CAM_RANGE_ERROR) << row->name;
    EXPECT_EQ(keocam::writeSetting(core_, *row, range.lowest - 1), CAM_RANGE_ERROR) << row->name;
  }
  EXPECT_EQ(keocam::writeSetting(core_, settings::videoStandard, VideoStandards::Reserved), CAM_RANGE_ERROR);
  EXPECT_EQ(takeAll(), Log{});
}

TEST_F(CoreSettingsTest, WriteShared_ReadsOnceAndKeepsTheRest) {
  replyTo(35, {0x80, 0xFB, 0x01, 0x02, 0xFF, 0xFE});
  replyTo(35, {});
  EXPECT_EQ(keocam::writeSetting(core_, settings::isothermMiddle, static_cast<short>(-3)), CAM_OK);
  EXPECT_EQ(takeRequests(), requests({{35, {}}, {35, {0x80, 0xFB, 0xFF, 0xFD, 0xFF, 0xFE}}}));
  replyTo(17, {0x00, 0x02});
  replyTo(17, {});
  EXPECT_EQ(keocam::writeSetting(core_, settings::invertVideo, true), CAM_OK);
  EXPECT_EQ(takeRequests(), requests({{17, {}}, {17, {0x00, 0x03}}}));
}

TEST_F(CoreSettingsTest, WriteShared_RestUnknown_WritesNothing) {
  EXPECT_EQ(keocam::writeSetting(core_, settings::isothermMiddle, static_cast<short>(-3)), UNKNOWN_ERROR);
  EXPECT_EQ(takeRequests(), requests({{35, {}}}));
}

}  // namespace
