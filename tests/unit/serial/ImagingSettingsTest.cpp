// Every imaging setting, both ways: the wire value of each value, and what each word of a reply means.
#include <functional>
#include <map>
#include <optional>

#include "tests/unit/serial/CoreTest.h"

namespace {

using ImagingSettingsTest = CoreTest;
using Bytes = core_frames::Bytes;
using Log = std::vector<std::string>;

/// A setting that has a list of values.
struct Listed {
  const char* name;
  uint8_t code;
  std::function<unsigned int(CameraSerialSettings&)> get;
  std::function<void(CameraSerialSettings&, unsigned int)> set;
  std::map<unsigned int, unsigned int> wire_of_value;
  std::map<unsigned int, unsigned int> value_of_wire;  ///< all other words mean 0
  Bytes read_payload = {};
  std::optional<uint8_t> write_selector = std::nullopt;  ///< else 0x00
};

template <typename T>
auto getter(T (CameraSerialSettings::*member)()) {
  return [member](CameraSerialSettings& core) { return static_cast<unsigned int>((core.*member)()); };
}

template <typename T>
auto setter(void (CameraSerialSettings::*member)(T)) {
  return [member](CameraSerialSettings& core, unsigned int value) { (core.*member)(static_cast<T>(value)); };
}

using Core = CameraSerialSettings;

const std::vector<Listed>& listed() {
  static const std::vector<Listed> table = {
      {"FFCMode", 11, getter(&Core::GetFFCMode), setter(&Core::SetFFCMode), {{0, 0}, {1, 1}, {2, 2}}, {{1, 1}, {2, 2}}},
      {"XPBusMode",
       18,
       getter(&Core::GetXPBusMode),
       setter(&Core::SetXPBusMode),
       {{0, 0}, {1, 1}, {2, 2}},
       {{1, 1}, {2, 2}},
       {0x02, 0x00},
       0x03},
      {"LVDSMode",
       18,
       getter(&Core::GetLVDSMode),
       setter(&Core::SetLVDSMode),
       {{0, 0}, {1, 1}},
       {{1, 1}},
       {0x04, 0x00},
       0x05},
      {"CMOSBitDepth",
       18,
       getter(&Core::GetCMOSBitDepth),
       setter(&Core::SetCMOSBitDepth),
       {{0, 0}, {1, 1}, {2, 2}, {3, 3}},
       {{1, 1}},
       {0x08, 0x00},
       0x06},
      {"LVDSBitDepth",
       18,
       getter(&Core::GetLVDSBitDepth),
       setter(&Core::SetLVDSBitDepth),
       {{0, 0}, {1, 1}},
       {{1, 1}},
       {0x09, 0x00},
       0x07},
      {"TestPattern",
       37,
       getter(&Core::GetTestPattern),
       setter(&Core::SetTestPattern),
       {{0, 0}, {1, 1}, {2, 3}, {3, 4}, {4, 5}, {5, 6}, {6, 8}},
       {{1, 1}, {3, 2}, {4, 3}, {5, 4}, {6, 5}, {8, 6}}},
      {"ExternalSync",
       33,
       getter(&Core::GetExternalSync),
       setter(&Core::SetExternalSync),
       {{0, 0}, {1, 2}, {2, 1}},
       {{1, 2}, {2, 1}}},
      {"Palette",
       16,
       getter(&Core::GetPalette),
       setter(&Core::SetPalette),
       {{0, 0},
        {1, 1},
        {2, 2},
        {3, 3},
        {4, 4},
        {5, 5},
        {6, 6},
        {7, 7},
        {8, 8},
        {9, 9},
        {10, 10},
        {11, 11},
        {12, 12},
        {13, 13}},
       {{1, 1},
        {2, 2},
        {3, 3},
        {4, 4},
        {5, 5},
        {6, 6},
        {7, 7},
        {8, 8},
        {9, 9},
        {10, 10},
        {11, 11},
        {12, 12},
        {13, 13}}},
      {"VideoColorMode",
       38,
       getter(&Core::GetVideoColorMode),
       setter(&Core::SetVideoColorMode),
       {{0, 0}, {1, 1}},
       {{1, 1}}},
      {"SpotDisplayMode",
       43,
       getter(&Core::GetSpotDisplayMode),
       setter(&Core::SetSpotDisplayMode),
       {{0, 0}, {1, 1}, {2, 2}, {3, 3}},
       {{1, 1}, {2, 2}, {3, 3}}},
      {"SpotMeterMode",
       31,
       getter(&Core::GetSpotMeterMode),
       setter(&Core::SetSpotMeterMode),
       {{0, 0}, {1, 1}, {2, 2}},
       {{1, 1}, {2, 2}}},
  };
  return table;
}

TEST_F(ImagingSettingsTest, EveryList_EveryValue_SendsItsWireValue) {
  for (const Listed& setting : listed()) {
    for (unsigned int value = 0; value < 260; ++value) {
      SCOPED_TRACE(std::string(setting.name) + " " + std::to_string(value));
      replyTo(setting.code, {});
      setting.set(core_, value);
      const auto wire = setting.wire_of_value.find(value);
      if (wire == setting.wire_of_value.end()) {
        EXPECT_EQ(takeAll(), Log{}) << "sends nothing and reports nothing";
      } else {
        EXPECT_EQ(
            takeRequests(),
            requests({{setting.code, {setting.write_selector.value_or(0x00), static_cast<uint8_t>(wire->second)}}}));
      }
      scripted::network().serial.replies.clear();
    }
    setting.set(core_, 0xFFFFFFFF);
    EXPECT_EQ(takeAll(), Log{}) << setting.name;
  }
}

TEST_F(ImagingSettingsTest, EveryList_EveryWord_ReadsAsItsValue) {
  for (const Listed& setting : listed()) {
    for (const unsigned int high : {0x00U, 0x01U, 0xFFU}) {
      for (unsigned int low = 0; low < 256; ++low) {
        const unsigned int word = high << 8 | low;
        replyTo(setting.code, {static_cast<uint8_t>(high), static_cast<uint8_t>(low)});
        const auto value = setting.value_of_wire.find(word);
        EXPECT_EQ(setting.get(core_), value != setting.value_of_wire.end() ? value->second : 0u)
            << setting.name << " " << word;
        EXPECT_EQ(takeRequests(), requests({{setting.code, setting.read_payload}}));
      }
    }
  }
}

TEST_F(ImagingSettingsTest, EveryList_FailedExchange_IsZero) {
  for (const Listed& setting : listed()) {
    EXPECT_EQ(setting.get(core_), 0u) << setting.name;
    EXPECT_EQ(takePrinted(), Log{"err: CameraSerialSettings::GetParameter: Error reading message from camera.\\n"});
  }
}

TEST_F(ImagingSettingsTest, AgcType_EveryWord) {
  for (unsigned int word = 0; word < 0x201; ++word) {
    replyTo(19, {static_cast<uint8_t>(word >> 8), static_cast<uint8_t>(word & 0xFF)});
    EXPECT_EQ(static_cast<unsigned int>(core_.GetAGCType()), word >= 1 && word <= 5 ? word : 0) << word;
    EXPECT_EQ(takeRequests(), requests({{19, {}}}));
  }
  EXPECT_EQ(core_.GetAGCType(), AGCTypes{0});
}

TEST_F(ImagingSettingsTest, AgcType_OutsideItsList_SendsNothing) {
  for (const unsigned int value : {6U, 10U, 11U, 256U}) {
    core_.SetAGCType(static_cast<AGCTypes>(value));
    EXPECT_EQ(takeAll(), Log{});
  }
}

TEST_F(ImagingSettingsTest, VideoStandard_EveryWord) {
  const std::map<unsigned int, unsigned int> values = {{1, 1}, {4, 3}, {5, 4}};
  for (unsigned int word = 0; word < 0x201; ++word) {
    replyTo(114, {static_cast<uint8_t>(word >> 8), static_cast<uint8_t>(word & 0xFF)});
    const auto value = values.find(word);
    EXPECT_EQ(static_cast<unsigned int>(core_.GetVideoStandard()), value != values.end() ? value->second : 0) << word;
  }
  EXPECT_EQ(core_.GetVideoStandard(), VideoStandards{0});
}

TEST_F(ImagingSettingsTest, VideoStandards_AreFollowedByACorrection) {
  const std::map<unsigned int, uint8_t> wires = {{0, 0}, {1, 1}, {3, 4}, {4, 5}};
  for (const auto& [value, wire] : wires) {
    replyTo(114, {});
    replyTo(12, {});
    core_.SetVideoStandards(static_cast<VideoStandards>(value));
    EXPECT_EQ(takeRequests(), requests({{114, {0x00, wire}}, {12, {}}}));
  }
}

TEST_F(ImagingSettingsTest, VideoStandards_CorrectionFollowsAFailureToo) {
  core_.SetVideoStandards(VideoStandards::Pal);
  EXPECT_EQ(takeRequests(), requests({{114, {0x00, 1}}, {12, {}}}));
}

TEST_F(ImagingSettingsTest, VideoStandards_TheOneThatTheCoreLacks_SendsNothing) {
  for (const unsigned int value : {2U, 5U, 0xFFFFFFFFU}) {
    core_.SetVideoStandards(static_cast<VideoStandards>(value));
    EXPECT_EQ(takeAll(), Log{});
  }
}

TEST_F(ImagingSettingsTest, AnalogVideo_OnAndOff) {
  replyTo(15, {});
  replyTo(15, {});
  core_.SetAnalogVideo(true);
  core_.SetAnalogVideo(false);
  EXPECT_EQ(takeRequests(), requests({{15, {0x00, 0x00}}, {15, {0x00, 0x02}}}));
}

TEST_F(ImagingSettingsTest, AnalogVideo_ReadsAsOff_WhetherOnOrOff) {
  for (const Bytes& payload : {Bytes{0x00, 0x00}, Bytes{0x00, 0x02}}) {
    replyTo(15, payload);
    EXPECT_FALSE(core_.GetAnalogVideo());
    EXPECT_EQ(takeRequests(), requests({{15, {}}}));
  }
  EXPECT_FALSE(core_.GetAnalogVideo()) << "no answer";
}

TEST_F(ImagingSettingsTest, AnalogVideo_OtherReplies_ByTheFirstByteModulo32) {
  for (unsigned int first = 0; first < 256; ++first) {
    replyTo(15, {static_cast<uint8_t>(first), 0x02});
    EXPECT_EQ(core_.GetAnalogVideo(), first % 32 != 0 && first % 32 != 3) << first;
  }
}

/// A setting that is a plain number.
struct Number {
  const char* name;
  uint8_t code;
  std::function<int(CameraSerialSettings&)> get;
  std::function<ResponseStatuses(CameraSerialSettings&, int)> set;
  int highest;  ///< 65535: not checked
};

template <typename T>
auto numberSetter(ResponseStatuses (CameraSerialSettings::*member)(T)) {
  return [member](CameraSerialSettings& core, int value) { return (core.*member)(static_cast<T>(value)); };
}

const std::vector<Number>& numbers() {
  static const std::vector<Number> table = {
      {"FFCPeriod", 13, getter(&Core::GetFFCPeriod), numberSetter(&Core::SetFFCPeriod), 30000},
      {"FFCTempDelta", 14, getter(&Core::GetFFCTempDelta), numberSetter(&Core::SetFFCTempDelta), 10},
      {"FFCWarnTime", 60, getter(&Core::GetFFCWarnTime), numberSetter(&Core::SetFFCWarnTime), 600},
      {"Contrast", 20, getter(&Core::GetContrast), numberSetter(&Core::SetContrast), 255},
      {"Brightness", 21, getter(&Core::GetBrightness), numberSetter(&Core::SetBrightness), 16383},
      {"DDEGain", 44, getter(&Core::GetDDEGain), numberSetter(&Core::SetDDEGain), 65535},
      {"AGCFilter", 62, getter(&Core::GetAGCFilter), numberSetter(&Core::SetAGCFilter), 255},
      {"PlateauLevel", 63, getter(&Core::GetPlateauLevel), numberSetter(&Core::SetPlateauLevel), 4095},
      {"AGCMidpoint", 85, getter(&Core::GetAGCMidpoint), numberSetter(&Core::SetAGCMidpoint), 255},
      {"MaxACGGain", 106, getter(&Core::GetMaxACGGain), numberSetter(&Core::SetMaxACGGain), 255},
  };
  return table;
}

TEST_F(ImagingSettingsTest, EveryNumber_IsSentUpToItsBound) {
  for (const Number& number : numbers()) {
    for (const int value : {0, 1, number.highest, number.highest + 1}) {
      if (value > 65535) continue;
      SCOPED_TRACE(std::string(number.name) + " " + std::to_string(value));
      replyTo(number.code, {}, 0x0A);
      const ResponseStatuses status = number.set(core_, value);
      if (value > number.highest) {
        EXPECT_EQ(status, CAM_RANGE_ERROR);
        EXPECT_EQ(takeAll(), Log{});
      } else {
        EXPECT_EQ(status, CAM_FEATURE_NOT_ENABLED) << "the status is the core's";
        EXPECT_EQ(takeRequests(),
                  requests({{number.code, {static_cast<uint8_t>(value >> 8), static_cast<uint8_t>(value & 0xFF)}}}));
      }
      scripted::network().serial.replies.clear();
    }
  }
}

TEST_F(ImagingSettingsTest, EveryNumber_IsTheFirstWordOfTheReply) {
  for (const Number& number : numbers()) {
    replyTo(number.code, {0xFE, 0xDC, 0x11, 0x22});
    EXPECT_EQ(number.get(core_), 0xFEDC) << number.name;
    EXPECT_EQ(takeRequests(), requests({{number.code, {}}}));
    EXPECT_EQ(number.get(core_), 0) << number.name << ", no answer";
    takeAll();
  }
}

TEST_F(ImagingSettingsTest, BrightnessBias_IsSigned) {
  replyTo(24, {});
  EXPECT_EQ(core_.SetBrightnessBias(-2), CAM_OK);
  EXPECT_EQ(takeRequests(), requests({{24, {0xFF, 0xFE}}}));
  replyTo(24, {0xFF, 0xFE});
  EXPECT_EQ(core_.GetBrightnessBias(), -2);
  EXPECT_EQ(core_.GetBrightnessBias(), 0) << "no answer";
}

TEST_F(ImagingSettingsTest, SpatialThreshold_TravelsRaisedBy256) {
  replyTo(227, {});
  EXPECT_EQ(core_.SetSpatialTreshold(5), CAM_OK);
  EXPECT_EQ(takeRequests(), requests({{227, {0x01, 0x05}}}));
  replyTo(227, {0x01, 0x05});
  EXPECT_EQ(core_.GetSpatialTreshold(), 5u);
  EXPECT_EQ(core_.GetSpatialTreshold(), static_cast<unsigned int>(-256)) << "no answer";
}

TEST_F(ImagingSettingsTest, SpatialThreshold_OnlySixteenBitsAreSent) {
  replyTo(227, {});
  EXPECT_EQ(core_.SetSpatialTreshold(0x1FF05), CAM_OK);
  replyTo(227, {});
  EXPECT_EQ(core_.SetSpatialTreshold(0xFFFFFFFF), CAM_OK);
  EXPECT_EQ(takeRequests(), requests({{227, {0x00, 0x05}}, {227, {0x00, 0xFF}}}));
}

TEST_F(ImagingSettingsTest, RadiometryHighResolution_AsksTheCore) {
  replyTo(142, {0x00, 0x00});
  EXPECT_FALSE(core_.GetRadiometryHighResolutionMode());
  EXPECT_EQ(core_.radiometrySelector, 0u);
  EXPECT_EQ(takeRequests(), requests({{142, {0x00, 0x10}}}));
  for (const Bytes& payload : {Bytes{0x00, 0x01}, Bytes{0x01, 0x00}, Bytes{0xFF, 0xFF}}) {
    replyTo(142, payload);
    EXPECT_TRUE(core_.GetRadiometryHighResolutionMode());
  }
  EXPECT_FALSE(core_.GetRadiometryHighResolutionMode()) << "no answer";
}

}  // namespace
