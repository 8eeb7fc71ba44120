// The verbs of the thermal core on the command line.
#include "ParsedVerbs.h"

namespace keocam::cli {
namespace {

TEST(CoreVerbs, Get_TakesNamesAndOptions) {
  const auto all = optionsOf<GetOptions>({"get"});
  EXPECT_TRUE(all.names.empty());
  EXPECT_FALSE(all.serial_number);
  EXPECT_FALSE(all.json);
  const auto two = optionsOf<GetOptions>({"get", "contrast", "-c", "KEOD2001", "palette", "--json"});
  EXPECT_EQ(two.names, (Arguments{"contrast", "palette"}));
  EXPECT_EQ(two.serial_number, "KEOD2001");
  EXPECT_TRUE(two.json);
}

TEST(CoreVerbs, Set_TakesAssignmentsAsTheyAre) {
  const auto options =
      optionsOf<SetOptions>({"set", "brightness-bias=-5", "ffc-mode=", "--camera", "KEOD2001", "--json"});
  EXPECT_EQ(options.assignments, (Arguments{"brightness-bias=-5", "ffc-mode="}));
  EXPECT_EQ(options.serial_number, "KEOD2001");
  EXPECT_TRUE(options.json);
  EXPECT_TRUE(optionsOf<SetOptions>({"set"}).assignments.empty());
}

TEST(CoreVerbs, VerbsBehindCore_AreTold) {
  EXPECT_TRUE(optionsOf<InfoOptions>({"core", "info", "--json"}).json);
  EXPECT_EQ(optionsOf<ResetOptions>({"core", "reset", "-c", "A"}).serial_number, "A");
  EXPECT_EQ(optionsOf<DefaultsOptions>({"core", "defaults", "-c", "B"}).serial_number, "B");
  EXPECT_FALSE(optionsOf<FactoryDefaultsOptions>({"core", "factory-defaults"}).yes);
  EXPECT_TRUE(optionsOf<FactoryDefaultsOptions>({"core", "factory-defaults", "--yes"}).yes);
  EXPECT_EQ(optionsOf<FfcOptions>({"ffc", "--camera=C"}).serial_number, "C");
}

TEST(CoreVerbs, Verbosity_IsTakenOnEverySideOfTheVerbs) {
  for (const Arguments& arguments :
       {Arguments{"-q", "core", "info"}, Arguments{"core", "-q", "info"}, Arguments{"core", "info", "-q"}}) {
    const auto parsed = parseCommandLine(arguments);
    ASSERT_TRUE(std::holds_alternative<Invocation>(parsed)) << std::get<Answer>(parsed).text;
    EXPECT_EQ(std::get<Invocation>(parsed).verbosity, Verbosity::Quiet);
  }
}

TEST(CoreVerbs, CoreAlone_TellsWhatCanFollow) {
  EXPECT_NE(refusalOf({"core"}).find("info, reset, defaults, factory-defaults"), std::string::npos);
}

TEST(CoreVerbs, WrongVerbBehindCore_SuggestsTheNearOne) {
  EXPECT_NE(refusalOf({"core", "rest"}).find("\"core rest\"; did you mean \"reset\"?"), std::string::npos);
  EXPECT_NE(refusalOf({"core", "frobnicate"}).find("no verb \"core frobnicate\""), std::string::npos);
}

TEST(CoreVerbs, OptionBeforeTheVerbBehindCore_IsToldItsPlace) {
  EXPECT_NE(refusalOf({"core", "--camera", "KEOD2001", "info"}).find("keocam core info --camera"), std::string::npos);
}

TEST(CoreVerbs, WrongOption_SuggestsTheNearOneOfItsVerb) {
  EXPECT_NE(refusalOf({"core", "factory-defaults", "--ye"}).find("did you mean \"--yes\"?"), std::string::npos);
  EXPECT_NE(refusalOf({"core", "reset", "--yes"}).find("\"--yes\""), std::string::npos);
  EXPECT_NE(refusalOf({"ffc", "contrast"}).find("contrast"), std::string::npos);
}

TEST(CoreVerbs, HelpOfGetAndSet_ListsTheSettings) {
  for (const char* const verb : {"get", "set"}) {
    const auto parsed = parseCommandLine({verb, "--help"});
    const auto& answer = std::get<Answer>(parsed);
    EXPECT_EQ(answer.status, ExitStatus::Ok);
    EXPECT_NE(answer.text.find("spot-display-mode"), std::string::npos) << answer.text;
  }
}

}  // namespace
}  // namespace keocam::cli
