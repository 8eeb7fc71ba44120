// The values of settings as text, both ways.
#include "apps/keocam/core/SettingText.h"

#include <gtest/gtest.h>

#include "serial/CoreSettings.h"

namespace keocam::cli {
namespace {

int valueOf(const SettingRow& setting, const std::string& text) {
  const auto parsed = parseValue(setting, text);
  if (const auto* const wrong = std::get_if<std::string>(&parsed)) ADD_FAILURE() << *wrong;
  return std::holds_alternative<int>(parsed) ? std::get<int>(parsed) : -99999;
}

std::string refusalOf(const SettingRow& setting, const std::string& text) {
  const auto parsed = parseValue(setting, text);
  if (const auto* const value = std::get_if<int>(&parsed)) ADD_FAILURE() << setting.name << " took it as " << *value;
  return std::holds_alternative<int>(parsed) ? "" : std::get<std::string>(parsed);
}

TEST(SettingText, EveryChoice_IsUnderstoodByItsNameAndItsNumber) {
  for (const SettingRow* const setting : allSettings()) {
    for (const SettingChoice& choice : setting->choices) {
      if (choice.wire == kNotOnTheWire) continue;
      EXPECT_EQ(valueText(*setting, choice.value), choice.name);
      EXPECT_EQ(valueOf(*setting, choice.name), choice.value) << setting->name;
      EXPECT_EQ(valueOf(*setting, std::to_string(choice.value)), choice.value) << setting->name;
    }
  }
}

TEST(SettingText, EveryNumber_GoesUpToBothEndsOfItsRangeAndNotBeyond) {
  int numbers = 0;
  for (const SettingRow* const setting : allSettings()) {
    if (!setting->choices.empty()) continue;
    ++numbers;
    const SettingRange range = rangeOf(*setting);
    for (const int end : {range.lowest, range.highest}) {
      EXPECT_EQ(valueOf(*setting, valueText(*setting, end)), end) << setting->name;
    }
    for (const int beyond : {range.lowest - 1, range.highest + 1}) {
      EXPECT_NE(refusalOf(*setting, std::to_string(beyond)).find(acceptedText(*setting)), std::string::npos);
    }
  }
  EXPECT_EQ(numbers, 15);
}

TEST(SettingText, Numbers_AreDecimalOrHexadecimal) {
  EXPECT_EQ(valueOf(settings::brightness, "0x1fFF"), 0x1FFF);
  EXPECT_EQ(valueOf(settings::brightness, "0X10"), 16);
  EXPECT_EQ(valueOf(settings::brightness, "010"), 10);
  EXPECT_EQ(valueOf(settings::brightnessBias, "-5"), -5);
  EXPECT_EQ(valueOf(settings::brightnessBias, "-0x10"), -16);
}

TEST(SettingText, WhatIsNoNumber_IsRefusedWithTheRange) {
  for (const char* const text : {"", "-", "0x", "1.5", "12 ", " 12", "1e3", "+5", "--5", "0x-5", "many", "5counts",
                                 "4294967296", "-4294967296", "99999999999999999999999", "0xfffffffff"}) {
    const std::string refusal = refusalOf(settings::brightness, text);
    EXPECT_NE(refusal.find("brightness takes a whole number, 0 to 16383"), std::string::npos) << refusal;
  }
}

TEST(SettingText, Switches_AreOnOffTrueFalseOneAndZero) {
  EXPECT_TRUE(isSwitch(settings::invertVideo));
  EXPECT_TRUE(isSwitch(settings::analogVideo));
  EXPECT_FALSE(isSwitch(settings::externalSync));
  EXPECT_FALSE(isSwitch(settings::lvdsBitDepth));
  EXPECT_FALSE(isSwitch(settings::contrast));
  for (const char* const text : {"on", "true", "1"}) EXPECT_EQ(valueOf(settings::analogVideo, text), 1) << text;
  for (const char* const text : {"off", "false", "0"}) EXPECT_EQ(valueOf(settings::analogVideo, text), 0) << text;
  EXPECT_NE(refusalOf(settings::analogVideo, "2").find("off, on"), std::string::npos);
  EXPECT_NE(refusalOf(settings::externalSync, "true").find("off, master, slave"), std::string::npos);
}

TEST(SettingText, UnknownChoice_IsRefusedWithTheNearOneAndAll) {
  EXPECT_EQ(refusalOf(settings::ffcMode, "automatik"),
            "ffc-mode does not take \"automatik\"; did you mean \"automatic\"? It takes: manual, automatic, external.");
  EXPECT_EQ(refusalOf(settings::ffcMode, "7"), "ffc-mode does not take \"7\". It takes: manual, automatic, external.");
}

TEST(SettingText, ChoiceThatTheCoreDoesNotHave_IsNeitherOfferedNorTaken) {
  EXPECT_EQ(acceptedText(settings::videoStandard), "ntsc, pal, ntsc-60hz, pal-50hz");
  for (const char* const text : {"reserved", "2"}) {
    EXPECT_NE(refusalOf(settings::videoStandard, text).find("ntsc, pal"), std::string::npos);
  }
}

TEST(SettingText, ControlCharacters_AreEscapedInTheRefusal) {
  EXPECT_EQ(refusalOf(settings::ffcMode, "\x1b[2J").find('\x1b'), std::string::npos);
}

}  // namespace
}  // namespace keocam::cli
