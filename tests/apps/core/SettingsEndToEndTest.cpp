// keocam get and keocam set, against a core in software.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>

#include "../KeocamRun.h"
#include "CameraWithCore.h"
#include "apps/keocam/core/RadiometrySettings.h"
#include "apps/keocam/core/SettingText.h"

namespace keocam::cli {
namespace {

using nlohmann::json;

// The end of a setting's values that this core takes: its own bounds are narrower than the library's for these.
int endOf(const SettingRow& setting, bool upper) {
  static const std::map<std::string, SettingRange> kNarrower = {
      {"dde-gain", {0, 255}},
      {"spatial-threshold", {0, 255}},
      {"brightness-bias", {-16383, 16383}},
      {"reflected-temperature", {0, 60'000}},
      {"atmospheric-temperature", {0, 12'000}},
  };
  const auto narrower = kNarrower.find(setting.name);
  const SettingRange range = narrower != kNarrower.end() ? narrower->second : listedRange(setting);
  return upper ? range.highest : range.lowest;
}

json expectedJson(const SettingRow& setting, int value) {
  if (decimalsOf(setting) > 0) return inUnits(setting, value);
  if (setting.choices.empty()) return value;
  if (acceptedText(setting) == "off, on") return value != 0;
  return valueText(setting, value);
}

void setAllAndCompare(bool upper) {
  Arguments arguments{"set", "--json"};
  json expected;
  for (const SettingRow* const setting : listedSettings()) {
    const int value = endOf(*setting, upper);
    arguments.push_back(std::string(setting->name) + "=" + valueText(*setting, value));
    expected[setting->name] = expectedJson(*setting, value);
  }
  const Ended set = keocam(arguments);
  EXPECT_EQ(set.status, 0) << set.error;
  EXPECT_EQ(set.error, "");
  EXPECT_EQ(json::parse(set.output), expected);

  const Ended get = keocam({"get", "--json"});
  EXPECT_EQ(get.status, 0) << get.error;
  EXPECT_EQ(json::parse(get.output), expected);
}

TEST(KeocamSettings, EverySetting_IsSetToBothItsEndsAndReadAgain) {
  CameraWithCore simulated;
  setAllAndCompare(true);
  EXPECT_EQ(simulated.core().word(16), 13);  // The palette is the core's own word, not only an echo to the host.
  EXPECT_EQ(simulated.core().word(21), 16383);
  EXPECT_EQ(simulated.core().word(17), 3);
  setAllAndCompare(false);
  EXPECT_EQ(simulated.core().word(16), 0);
  EXPECT_EQ(simulated.core().word(17), 0);
}

TEST(KeocamSettings, GetAll_IsTheWholeTableInTheirOrder) {
  const CameraWithCore simulated;
  const Ended get = keocam({"get"});
  EXPECT_EQ(get.status, 0) << get.error;
  EXPECT_EQ(get.error, "");
  std::size_t position = 0;
  for (const SettingRow* const setting : listedSettings()) {
    position = get.output.find(std::string("\n") + setting->name + "  ", position);
    ASSERT_NE(position, std::string::npos) << setting->name << " in\n" << get.output;
  }
  EXPECT_TRUE(contains(get.output, "palette                  white-hot ")) << get.output;
}

TEST(KeocamSettings, GetByName_AsksForThatAlone) {
  const CameraWithCore simulated;
  const Ended get = keocam({"get", "--camera", "KEOD2001", "--json", "brightness"});
  EXPECT_EQ(get.status, 0) << get.error;
  EXPECT_EQ(json::parse(get.output), (json{{"brightness", 8192}}));
  EXPECT_EQ(simulated.asked(), std::vector<int>{21});
}

TEST(KeocamSettings, Get_ChangesNothingOnTheCore) {
  CameraWithCore simulated;
  const simulator::CoreSettings before = simulated.core().settings();
  EXPECT_EQ(keocam({"get"}).status, 0);
  EXPECT_TRUE(simulated.core().settings() == before);
}

TEST(KeocamSettings, Set_WritesInTheOrderGivenAndReadsBack) {
  CameraWithCore simulated;
  const Ended set = keocam({"set", "palette=5", "contrast=0x28", "analog-video=false"});
  EXPECT_EQ(set.status, 0) << set.error;
  EXPECT_EQ(set.output,
            "NAME          VALUE      UNIT\n"
            "palette       ironbow-1\n"
            "contrast      40\n"
            "analog-video  off\n");
  EXPECT_EQ(simulated.asked(), (std::vector<int>{16, 20, 15}));
  EXPECT_EQ(simulated.core().word(15), 2);
}

TEST(KeocamSettings, NewVideoStandard_IsFollowedByAFlatFieldCorrection) {
  CameraWithCore simulated;
  const uint64_t before = simulated.core().ffcCount();
  EXPECT_EQ(keocam({"set", "video-standard=pal"}).status, 0);
  EXPECT_EQ(simulated.core().ffcCount(), before + 1);
  EXPECT_EQ(simulated.asked(), (std::vector<int>{114, 12}));
}

TEST(KeocamSettings, OneWrongAssignment_SendsNothing) {
  const CameraWithCore simulated;
  for (const char* const wrong : {"contrst=5", "contrast=256", "contrast=-1", "contrast=many", "contrast",
                                  "contrast=", "palette=ironbow", "video-standard=2", "lvds-mode=maybe", "palette=2"}) {
    const Ended set = keocam({"set", "palette=rainbow", wrong});
    EXPECT_EQ(set.status, 2) << wrong;
    EXPECT_EQ(set.output, "") << wrong;
    EXPECT_TRUE(contains(set.error, std::string(wrong).substr(0, 5))) << set.error;
  }
  EXPECT_FALSE(simulated.heardAnything());
}

TEST(KeocamSettings, WrongName_IsStatus2WithTheNearOnes) {
  const CameraWithCore simulated;
  const Ended get = keocam({"get", "isotherm", "palete"});
  EXPECT_EQ(get.status, 2);
  EXPECT_EQ(get.output, "");
  for (const char* const near : {"\"isotherm-unit\"", "\"isotherm-upper\"", "\"palette\""}) {
    EXPECT_TRUE(contains(get.error, near)) << get.error;
  }
  EXPECT_FALSE(simulated.heardAnything());
}

TEST(KeocamSettings, ValueThatTheCoreRefuses_IsStatus1AndEndsTheWork) {
  const CameraWithCore simulated;
  const Ended set = keocam({"set", "contrast=41", "dde-gain=256", "palette=rainbow"});
  EXPECT_EQ(set.status, 1);
  EXPECT_TRUE(contains(set.output, "contrast  41")) << set.output;
  EXPECT_TRUE(contains(set.error, "dde-gain=256 was not set: the core refuses the value (CAM_RANGE_ERROR)"))
      << set.error;
  EXPECT_TRUE(contains(set.error, "Not sent any more: palette=rainbow.")) << set.error;
  EXPECT_EQ(simulated.asked(), (std::vector<int>{20, 44}));
}

TEST(KeocamSettings, DamagedAnswers_AreNotReadAndStatus1) {
  CameraWithCore simulated;
  ChildProcess process(keocamWith({"get", "--json"}));
  ASSERT_TRUE(simulated.waitUntilAsked(kPatience));
  simulated.core().setFault(simulator::CoreFault::WrongCrc, 1000);
  const Ended get = ended(process);
  EXPECT_EQ(get.status, 1) << get.error;
  EXPECT_TRUE(contains(get.error, "(CAM_CHECKSUM_ERROR): ")) << get.error;
  const json object = json::parse(get.output);
  EXPECT_EQ(object.size(), listedSettings().size() + 1);
  EXPECT_TRUE(object["radiometry"].is_null());
  EXPECT_EQ(object["errors"]["radiometry"], "CAM_CHECKSUM_ERROR");
}

TEST(KeocamSettings, SomeLostAnswers_AreAskedForAgain) {
  CameraWithCore simulated;
  simulated.core().setFault(simulator::CoreFault::NoAnswer, 1000, 2);
  EXPECT_EQ(keocam({"set", "contrast=42"}).status, 0);
  EXPECT_EQ(simulated.core().word(20), 42);
}

}  // namespace
}  // namespace keocam::cli
