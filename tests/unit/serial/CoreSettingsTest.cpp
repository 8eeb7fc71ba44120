// Settings with their status, and the table of them.
#include "serial/CoreSettings.h"

#include <algorithm>
#include <functional>
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
    EXPECT_LE(parameter->reading.reply_bytes, keocam::SettingPayload{}.size()) << row->name;
    EXPECT_LE(parameter->writing.value_bytes, keocam::SettingPayload{}.size()) << row->name;
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

/// The events of a checked exchange without the question for what has come late.
std::vector<std::string> withoutLookingForLateAnswers(std::vector<std::string> events) {
  const auto looked = std::find(events.begin(), events.end(), "PvDeviceSerialPort::GetRxBytesReady");
  EXPECT_EQ(looked - events.begin(), 2) << "after opening, before writing";
  events.erase(looked);
  return events;
}

TEST_F(CoreSettingsTest, Read_IsTheSameExchangeAsTheMembers) {
  replyTo(33, {0x00, 0x02});
  core_.GetExternalSync();
  const Log member = takeAll();
  replyTo(33, {0x00, 0x02});
  const auto sync = keocam::readSetting(core_, settings::externalSync);
  EXPECT_EQ(withoutLookingForLateAnswers(takeAll()), member);
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
  for (const uint8_t status : Bytes{0x00, 0x0A}) {
    replyTo(21, {0x00, 0x07}, status);
    EXPECT_EQ(keocam::readSetting(core_, settings::contrast).status, UNKNOWN_ERROR) << "an answer to something else";
    Bytes damaged = core_frames::frame(20, {}, status);
    damaged.back() = static_cast<uint8_t>(~damaged.back());
    reply(damaged);
    EXPECT_NE(keocam::readSetting(core_, settings::contrast).status, CAM_FEATURE_NOT_ENABLED) << "not to be trusted";
  }
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
  EXPECT_EQ(withoutLookingForLateAnswers(takeAll()), member);
}

TEST_F(CoreSettingsTest, LateAnswer_IsThrownAwayFirst) {
  for (const bool writes : {false, true}) {
    scripted::network().serial.ready = {12};
    replyTo(20, {0x00, 0x63});  // late
    replyTo(20, {0x00, 0x07}, writes ? 0x03 : 0x00);
    if (writes) {
      EXPECT_EQ(keocam::writeSetting(core_, settings::contrast, static_cast<unsigned short>(7)), CAM_RANGE_ERROR);
    } else {
      EXPECT_EQ(keocam::readSetting(core_, settings::contrast).value, 7);
    }
    const Log events = takeAll();
    ASSERT_GE(events.size(), 4u);
    EXPECT_EQ(events[2], "PvDeviceSerialPort::GetRxBytesReady");
    EXPECT_EQ(events[3], "PvDeviceSerialPort::Read 1024 0");
  }
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

/// What a setting's own member sends for a value, beside the setting.
struct MemberOfSetting {
  const keocam::SettingRow& setting;
  int value;
  std::function<void(CameraSerialSettings&)> set;
};

TEST_F(CoreSettingsTest, Write_EverySetting_SendsWhatItsMemberSends) {
  using Core = CameraSerialSettings;
  const std::vector<MemberOfSetting> members = {
      {settings::ffcMode, 2, [](Core& core) { core.SetFFCMode(FFCModes::External); }},
      {settings::ffcPeriod, 30000, [](Core& core) { core.SetFFCPeriod(30000); }},
      {settings::ffcTempDelta, 10, [](Core& core) { core.SetFFCTempDelta(10); }},
      {settings::ffcWarnTime, 600, [](Core& core) { core.SetFFCWarnTime(600); }},
      {settings::xpBusMode, 2, [](Core& core) { core.SetXPBusMode(XPBusModes::Cmos); }},
      {settings::lvdsMode, 1, [](Core& core) { core.SetLVDSMode(LVDSModes::On); }},
      {settings::cmosBitDepth, 3, [](Core& core) { core.SetCMOSBitDepth(DigitalOutputDepth::Bits16YCbCr); }},
      {settings::lvdsBitDepth, 1, [](Core& core) { core.SetLVDSBitDepth(DigitalOutputDepth::Bits8); }},
      {settings::externalSync, 1, [](Core& core) { core.SetExternalSync(ExternalSyncModes::Master); }},
      {settings::testPattern, 6, [](Core& core) { core.SetTestPattern(TestPatterns::SteppedRamp); }},
      {settings::palette, 13, [](Core& core) { core.SetPalette(Palettes::GreenHot); }},
      {settings::analogVideo, 0, [](Core& core) { core.SetAnalogVideo(false); }},
      {settings::videoColorMode, 1, [](Core& core) { core.SetVideoColorMode(VideoColorModes::Color); }},
      {settings::spotDisplayMode, 3, [](Core& core) { core.SetSpotDisplayMode(SpotDisplayModes::NumberAndBar); }},
      {settings::spotMeterMode, 2, [](Core& core) { core.SetSpotMeterMode(SpotMeterModes::Celsius); }},
      {settings::contrast, 255, [](Core& core) { core.SetContrast(255); }},
      {settings::brightness, 16383, [](Core& core) { core.SetBrightness(16383); }},
      {settings::brightnessBias, -300, [](Core& core) { core.SetBrightnessBias(-300); }},
      {settings::agcFilter, 255, [](Core& core) { core.SetAGCFilter(255); }},
      {settings::plateauLevel, 4095, [](Core& core) { core.SetPlateauLevel(4095); }},
      {settings::agcMidpoint, 255, [](Core& core) { core.SetAGCMidpoint(255); }},
      {settings::maxAgcGain, 255, [](Core& core) { core.SetMaxACGGain(255); }},
      {settings::ddeGain, 65535, [](Core& core) { core.SetDDEGain(65535); }},
      {settings::spatialThreshold, 65279, [](Core& core) { core.SetSpatialTreshold(65279); }},
  };
  std::set<const keocam::SettingRow*> tested;
  for (const MemberOfSetting& member : members) {
    tested.insert(&member.setting);
    replyTo(member.setting.code, {});
    member.set(core_);
    const Log sent = takeAll();
    replyTo(member.setting.code, {});
    EXPECT_EQ(keocam::writeSetting(core_, member.setting, member.value), CAM_OK) << member.setting.name;
    EXPECT_EQ(withoutLookingForLateAnswers(takeAll()), sent) << member.setting.name;
  }
  // Those that are written otherwise than by their members, and have tests of their own.
  for (const keocam::SettingRow* row : keocam::allSettings()) {
    const bool apart = keocam::sharesItsValue(*row) || row == &settings::agcType || row == &settings::videoStandard;
    EXPECT_EQ(tested.count(row), apart ? 0u : 1u) << row->name;
  }
}

TEST_F(CoreSettingsTest, Write_VideoStandard_LeavesTheCorrectionToTheCaller) {
  replyTo(114, {});
  EXPECT_EQ(keocam::writeSetting(core_, settings::videoStandard, VideoStandards::Ntsc60Hz), CAM_OK);
  EXPECT_EQ(takeRequests(), requests({{114, {0x00, 0x04}}}));
}

TEST_F(CoreSettingsTest, WriteInvert_WordThatMeansNeither_LeavesRevertOff) {
  for (const Bytes& held : {Bytes{0x01, 0x02}, Bytes{0x00, 0x04}, Bytes{0xFF, 0xFF}}) {
    replyTo(17, held);
    replyTo(17, {});
    EXPECT_EQ(keocam::writeSetting(core_, settings::invertVideo, true), CAM_OK);
    EXPECT_EQ(takeRequests(), requests({{17, {}}, {17, {0x00, 0x01}}}));
  }
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
