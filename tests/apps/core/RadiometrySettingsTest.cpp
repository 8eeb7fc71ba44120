// The settings of radiometric cores among all others.
#include "apps/keocam/core/RadiometrySettings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <stdexcept>
#include <string>

#include "apps/keocam/core/SettingReport.h"
#include "apps/keocam/core/SettingText.h"
#include "radiometry/CoreRadiometry.h"
#include "serial/CoreSettings.h"

namespace keocam::cli {
namespace {

const SettingRow& named(const char* name) {
  const SettingRow* const setting = findListed(name);
  if (setting == nullptr) throw std::out_of_range(name);
  return *setting;
}

// The value that a text means; -1 for a refusal.
int valueOf(const char* name, const char* text) {
  const auto parsed = parseValue(named(name), text);
  return std::holds_alternative<int>(parsed) ? std::get<int>(parsed) : -1;
}

TEST(RadiometrySettings, Listed_AreTheCoresFollowedByFiveWithNamesOfTheirOwn) {
  const auto listed = listedSettings();
  EXPECT_EQ(listed.size(), allSettings().count + 5);
  std::set<std::string> names;
  for (const SettingRow* const setting : listed) {
    EXPECT_TRUE(names.insert(setting->name).second) << setting->name;
    EXPECT_EQ(findListed(setting->name), setting);
    EXPECT_EQ(isRadiometric(*setting), findSetting(setting->name) == nullptr);
  }
  for (const CoreObjectParameter* const parameter : allCoreObjectParameters()) {
    EXPECT_EQ(names.count(parameter->name), 1U);
  }
}

TEST(RadiometrySettings, Numbers_HaveDecimals) {
  EXPECT_EQ(acceptedText(named("emissivity")), "0.5 to 1");
  EXPECT_EQ(acceptedText(named("reflected-temperature")), "0 to 655.35");
  EXPECT_EQ(valueOf("emissivity", "0.95"), 950);
  EXPECT_EQ(valueOf("emissivity", "1"), 1000);
  EXPECT_EQ(valueOf("atmospheric-temperature", "20.25"), 2025);
  EXPECT_EQ(valueText(named("atmospheric-temperature"), 2025), "20.25");
  EXPECT_EQ(valueText(named("emissivity"), 950), "0.95");
  EXPECT_EQ(valueText(named("contrast"), 40), "40");
}

TEST(RadiometrySettings, NumbersBeyondTheirBounds_AreRefused) {
  for (const char* const wrong : {"0.49", "1.01", "-1", "nan", "inf", "", "x", "0,9", "1e9"}) {
    const auto parsed = parseValue(named("emissivity"), wrong);
    ASSERT_TRUE(std::holds_alternative<std::string>(parsed)) << wrong;
    EXPECT_EQ(std::get<std::string>(parsed).rfind("emissivity takes a number, 0.5 to 1, not \"", 0), 0U);
  }
}

TEST(RadiometrySettings, EveryStep_IsReadBackAsItWasWritten) {
  for (const CoreObjectParameter* const parameter : allCoreObjectParameters()) {
    const SettingRow& setting = named(parameter->name);
    const SettingRange range = listedRange(setting);
    for (int value = range.lowest; value <= range.highest; ++value) {
      const double written = inUnits(setting, value);
      ASSERT_GE(written, parameter->lowest);
      ASSERT_LE(written, parameter->highest);
      const double held = std::round(written * parameter->steps_per_unit) / parameter->steps_per_unit;
      ASSERT_EQ(inSteps(setting, held), value) << setting.name;
    }
  }
}

TEST(RadiometrySettings, Switches_AreOffAndOnOrLowAndHigh) {
  EXPECT_TRUE(isSwitch(named("radiometry")));
  EXPECT_EQ(acceptedText(named("radiometry-resolution")), "low, high");
  EXPECT_EQ(valueOf("radiometry", "on"), 1);
  EXPECT_EQ(valueOf("radiometry", "false"), 0);
  EXPECT_EQ(valueOf("radiometry-resolution", "high"), 1);
  EXPECT_EQ(valueOf("radiometry", "2"), -1);
  EXPECT_EQ(settingJson({{&named("radiometry"), {CAM_OK, 1}}, {&named("emissivity"), {CAM_OK, 950}}}),
            "{\n  \"radiometry\": true,\n  \"emissivity\": 0.95\n}\n");
}

TEST(RadiometrySettings, RefusalOfAnUnradiometricCore_IsTold) {
  EXPECT_TRUE(isLackOfRadiometry(named("emissivity"), CAM_FEATURE_NOT_ENABLED));
  EXPECT_FALSE(isLackOfRadiometry(named("emissivity"), CAM_RANGE_ERROR));
  EXPECT_FALSE(isLackOfRadiometry(named("contrast"), CAM_FEATURE_NOT_ENABLED));
}

}  // namespace
}  // namespace keocam::cli
