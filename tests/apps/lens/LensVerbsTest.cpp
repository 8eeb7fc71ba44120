// The verbs for lenses and calibrations on the command line.
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "../core/ParsedVerbs.h"

namespace keocam::cli {
namespace {

TEST(LensVerbs, Set_TakesNameAndOptions) {
  const auto options = optionsOf<LensSetOptions>({"lens", "set", "L25mm", "-c", "A", "--calibrations", "/data"});
  EXPECT_EQ(options.name, "L25mm");
  EXPECT_EQ(options.serial_number, "A");
  EXPECT_EQ(options.calibrations, "/data");
  EXPECT_FALSE(options.no_verify);
  EXPECT_TRUE(optionsOf<LensSetOptions>({"lens", "set", "--no-verify", "L25mm"}).no_verify);
}

TEST(LensVerbs, ListAndCurrent_TakeOptions) {
  EXPECT_TRUE(optionsOf<LensListOptions>({"lens", "list", "--json"}).json);
  EXPECT_EQ(optionsOf<LensCurrentOptions>({"lens", "current", "-c", "B"}).serial_number, "B");
}

TEST(LensVerbs, CalibrationFolder_ComesFromTheEnvironmentToo) {
  ::setenv("KEOCAM_DATA_DIR", "/from/environment", 1);
  EXPECT_EQ(optionsOf<LensListOptions>({"lens", "list"}).calibrations, "/from/environment");
  EXPECT_EQ(optionsOf<LensSetOptions>({"lens", "set", "A", "--calibrations", "/given"}).calibrations, "/given");
  ::unsetenv("KEOCAM_DATA_DIR");
}

TEST(LensVerbs, WhatIsMissing_IsNamed) {
  EXPECT_NE(refusalOf({"lens"}).find("behind \"lens\": list, current, set."), std::string::npos);
  EXPECT_NE(refusalOf({"lens", "set"}).find("NAME is required."), std::string::npos);
  EXPECT_NE(refusalOf({"calibration", "show"}).find("FILE is required."), std::string::npos);
  EXPECT_NE(refusalOf({"calibration"}).find("show, check, make"), std::string::npos);
}

TEST(LensVerbs, WrongVerbs_SuggestTheNearOne) {
  EXPECT_NE(refusalOf({"lens", "lst"}).find("\"lens lst\"; did you mean \"list\"?"), std::string::npos);
  EXPECT_NE(refusalOf({"calibration", "chek", "f"}).find("did you mean \"check\"?"), std::string::npos);
  EXPECT_NE(refusalOf({"lens", "-c", "A", "list"}).find("keocam lens current --camera"), std::string::npos);
}

TEST(CalibrationVerbs, ShowAndCheck_TakeTheFileAndOptions) {
  const auto show = optionsOf<CalibrationShowOptions>({"calibration", "show", "f", "--version", "02", "--json"});
  EXPECT_EQ(show.path, "f");
  EXPECT_EQ(show.given.version, "02");
  EXPECT_TRUE(show.json);
  const auto check = optionsOf<CalibrationCheckOptions>({"calibration", "check", "--serial", "KEOD2001", "f"});
  EXPECT_EQ(check.path, "f");
  EXPECT_EQ(check.given.serial_number, "KEOD2001");
  EXPECT_FALSE(check.given.version);
}

TEST(CalibrationVerbs, Make_PassesEverythingOn) {
  const auto options = optionsOf<SimulateOptions>({"calibration", "make", "--help", "-q", "--", "x", ""});
  EXPECT_EQ(options.arguments, (Arguments{"calibration", "--help", "-q", "--", "x", ""}));
}

TEST(LensVerbs, Help_FitsATerminal) {
  for (const Arguments& verb : {Arguments{"lens", "set"}, Arguments{"lens", "list"}, Arguments{"calibration", "check"},
                                Arguments{"calibration", "show"}, Arguments{"lens", "current"}, Arguments{"lens"},
                                Arguments{"calibration"}, Arguments{}}) {
    Arguments arguments = verb;
    arguments.emplace_back("--help");
    const auto parsed = parseCommandLine(arguments);
    std::istringstream lines(std::get<Answer>(parsed).text);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80U) << line;
  }
}

}  // namespace
}  // namespace keocam::cli
