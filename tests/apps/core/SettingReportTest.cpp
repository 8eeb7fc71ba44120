// Settings with their values as table and JSON.
#include "apps/keocam/core/SettingReport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

#include "apps/keocam/core/RadiometrySettings.h"
#include "apps/keocam/core/SettingText.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Table.h"
#include "serial/CoreSettings.h"

namespace keocam::cli {
namespace {

SettingReading read(const SettingRow& setting, int value) { return {&setting, {CAM_OK, value}}; }
SettingReading unread(const SettingRow& setting, ResponseStatuses status) { return {&setting, {status, 0}}; }

// Every setting at the value whose text is longest.
std::vector<SettingReading> widest() {
  std::vector<SettingReading> readings;
  for (const SettingRow* const setting : listedSettings()) {
    const SettingRange range = listedRange(*setting);
    int value = range.lowest < 0 ? range.lowest : range.highest;
    for (const SettingChoice& choice : setting->choices) {
      if (std::string(choice.name).size() > valueText(*setting, value).size()) value = choice.value;
    }
    readings.push_back(read(*setting, value));
  }
  return readings;
}

TEST(SettingReport, Table_HasNameValueUnitAndWhatCanBeSet) {
  EXPECT_EQ(settingTable({read(settings::ffcMode, 1), read(settings::ffcPeriod, 7200)}, 80),
            "NAME        VALUE      UNIT    TAKES\n"
            "ffc-mode    automatic          manual, automatic, external\n"
            "ffc-period  7200       frames  0 to 30000\n");
}

TEST(SettingReport, WidestValues_FitIn80ColumnsUncut) {
  const std::string table = settingTable(widest(), 80);
  std::istringstream lines(table);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(columnsOf(line), 80U) << line;
  EXPECT_EQ(table.find('~'), std::string::npos) << table;
  EXPECT_NE(table.find(" green-hot\n"), std::string::npos) << table;
}

TEST(SettingReport, InAFile_EverySettingIsOneLine) {
  const std::string table = settingTable(widest(), kUnlimitedWidth);
  EXPECT_EQ(static_cast<std::size_t>(std::count(table.begin(), table.end(), '\n')), 1 + listedSettings().size());
}

TEST(SettingReport, ShortTable_LeavesOutWhatCanBeSet) {
  EXPECT_EQ(shortSettingTable({read(settings::ffcPeriod, 0)}, 80),
            "NAME        VALUE  UNIT\n"
            "ffc-period  0      frames\n");
}

TEST(SettingReport, Unread_SaysSoInTheTable) {
  EXPECT_EQ(shortSettingTable({unread(settings::contrast, CAM_CHECKSUM_ERROR)}, 80),
            "NAME      VALUE     UNIT\n"
            "contrast  not read\n");
}

TEST(SettingReport, Json_HasNumbersNamesAndBooleans) {
  const auto object = nlohmann::json::parse(
      settingJson({read(settings::brightnessBias, -5), read(settings::palette, 5), read(settings::lvdsMode, 1),
                   read(settings::invertVideo, 0), read(settings::externalSync, 0)}));
  const nlohmann::json expected = {{"brightness-bias", -5},
                                   {"palette", "ironbow-1"},
                                   {"lvds-mode", true},
                                   {"invert-video", false},
                                   {"external-sync", "off"}};
  EXPECT_EQ(object, expected);
}

TEST(SettingReport, Json_UnreadIsNullAndAmongTheErrors) {
  const auto object = nlohmann::json::parse(
      settingJson({read(settings::contrast, 5), unread(settings::palette, CAM_FEATURE_NOT_ENABLED)}));
  const nlohmann::json expected = {
      {"contrast", 5}, {"palette", nullptr}, {"errors", {{"palette", "CAM_FEATURE_NOT_ENABLED"}}}};
  EXPECT_EQ(object, expected);
}

TEST(SettingReport, Json_OfNothingIsAnEmptyObject) { EXPECT_EQ(settingJson({}), "{}\n"); }

TEST(SettingReport, NoSetting_IsCalledLikeTheObjectOfErrors) { EXPECT_EQ(findListed("errors"), nullptr); }

TEST(SettingReport, Failures_AreThoseThatWereNotRead) {
  const auto failures = failuresAmong({read(settings::contrast, 5), unread(settings::palette, UNKNOWN_ERROR)});
  ASSERT_EQ(failures.size(), 1U);
  EXPECT_EQ(failures[0].name, "palette");
  EXPECT_EQ(failures[0].status, UNKNOWN_ERROR);
}

}  // namespace
}  // namespace keocam::cli
