// Settings named on the command line: what is understood, and what is said of the rest.
#include "apps/keocam/core/SettingArguments.h"

#include <gtest/gtest.h>

#include <sstream>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/core/RadiometrySettings.h"
#include "apps/keocam/terminal/PrintableText.h"

namespace keocam::cli {
namespace {

// The text of the usage failure that `action` throws.
template <typename Action>
std::string complaintOf(const Action& action) {
  try {
    action();
  } catch (const CommandFailure& failure) {
    EXPECT_EQ(failure.status(), ExitStatus::Usage);
    return failure.what();
  }
  ADD_FAILURE() << "nothing was wrong";
  return "";
}

std::string complaintAbout(const std::vector<std::string>& assignments) {
  return complaintOf([&] { assignmentsIn(assignments); });
}

TEST(SettingArguments, NoName_MeansEverySetting) {
  const auto settings = settingsNamed({});
  ASSERT_EQ(settings.size(), listedSettings().size());
  EXPECT_STREQ(settings.front()->name, "ffc-mode");
  EXPECT_STREQ(settings.back()->name, "radiometry-resolution");
}

TEST(SettingArguments, Names_KeepTheirOrder) {
  const auto settings = settingsNamed({"palette", "contrast"});
  ASSERT_EQ(settings.size(), 2U);
  EXPECT_STREQ(settings[0]->name, "palette");
  EXPECT_STREQ(settings[1]->name, "contrast");
}

TEST(SettingArguments, WrongNames_AreAllTold) {
  const std::string text = complaintOf([] { settingsNamed({"contrst", "palette", "zzz"}); });
  EXPECT_EQ(text,
            "There is no setting \"contrst\"; did you mean \"contrast\"?\n"
            "There is no setting \"zzz\". \"keocam get --help\" lists them.");
}

TEST(SettingArguments, PartOfAName_GetsTheNamesThatHaveIt) {
  EXPECT_EQ(complaintOf([] { settingsNamed({"spot"}); }),
            "There is no setting \"spot\"; did you mean \"spot-display-mode\" or \"spot-meter-mode\"?");
}

TEST(SettingArguments, Assignments_KeepTheirOrder) {
  const auto assignments = assignmentsIn({"palette=rainbow", "contrast=0x20", "invert-video=true"});
  ASSERT_EQ(assignments.size(), 3U);
  EXPECT_STREQ(assignments[0].setting->name, "palette");
  EXPECT_EQ(assignments[0].value, 3);
  EXPECT_EQ(assignments[1].value, 32);
  EXPECT_EQ(assignments[2].value, 1);
}

TEST(SettingArguments, WrongAssignments_AreAllTold) {
  const std::string text =
      complaintAbout({"contrast=256", "palette=rainbow", "ffc-mod=manual", "ffc-mode", "lvds-mode="});
  for (const char* const part : {"contrast takes a whole number, 0 to 255, not \"256\".", "did you mean \"ffc-mode\"",
                                 "ffc-mode has no value: write ffc-mode=VALUE. It takes: manual, automatic, external.",
                                 "lvds-mode does not take \"\""}) {
    EXPECT_NE(text.find(part), std::string::npos) << text;
  }
  EXPECT_EQ(text.find("palette"), std::string::npos) << text;
}

TEST(SettingArguments, NothingToSet_IsSaid) {
  EXPECT_NE(complaintAbout({}).find("NAME=VALUE"), std::string::npos);
  EXPECT_NE(complaintAbout({""}).find("no setting \"\""), std::string::npos);
  EXPECT_NE(complaintAbout({"=5"}).find("no setting \"\""), std::string::npos);
}

TEST(SettingArguments, TheSameSettingTwice_IsRefused) {
  EXPECT_EQ(complaintAbout({"contrast=1", "contrast=2"}), "contrast is given twice; give it once.");
}

TEST(SettingArguments, ControlCharacters_AreEscaped) {
  EXPECT_EQ(complaintAbout({"\x1b[2J=1", "contrast=\x1b[2J"}).find('\x1b'), std::string::npos);
}

TEST(SettingArguments, HelpTables_NameEverySettingWithin80Columns) {
  for (const std::string& table : {settingMeanings(), settingChoices()}) {
    for (const SettingRow* const setting : listedSettings()) {
      EXPECT_NE(table.find(std::string("\n  ") + setting->name + "  "), std::string::npos) << setting->name;
    }
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(columnsOf(line), 80U) << line;
    EXPECT_EQ(table.find('~'), std::string::npos) << table;
  }
}

}  // namespace
}  // namespace keocam::cli
