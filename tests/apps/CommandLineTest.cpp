// Verbs, options and what is said of wrong ones.
#include "apps/keocam/CommandLine.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace keocam::cli {
namespace {

using Arguments = std::vector<std::string>;

Invocation invocationOf(const Arguments& arguments) {
  const auto parsed = parseCommandLine(arguments);
  if (const auto* const answer = std::get_if<Answer>(&parsed)) {
    ADD_FAILURE() << answer->text;
    return {};
  }
  return std::get<Invocation>(parsed);
}

Answer answerOf(const Arguments& arguments) {
  const auto parsed = parseCommandLine(arguments);
  if (const auto* const answer = std::get_if<Answer>(&parsed)) return *answer;
  ADD_FAILURE() << "there is something to run";
  return {ExitStatus::Ok, ""};
}

void expectUsage(const Arguments& arguments, const std::string& mentioned) {
  const Answer answer = answerOf(arguments);
  EXPECT_EQ(answer.status, ExitStatus::Usage);
  EXPECT_NE(answer.text.find(mentioned), std::string::npos) << answer.text;
}

TEST(CommandLine, List_TakesJson) {
  EXPECT_FALSE(std::get<ListOptions>(invocationOf({"list"}).command).json);
  EXPECT_TRUE(std::get<ListOptions>(invocationOf({"list", "--json"}).command).json);
}

TEST(CommandLine, Stream_TakesItsOptions) {
  const auto options =
      std::get<StreamOptions>(invocationOf({"stream", "-c", "KEOD2001", "--frames", "100", "--duration=2.5",
                                            "--timeout", "7", "--picture", "last.png", "--json"})
                                  .command);
  EXPECT_EQ(options.serial_number, "KEOD2001");
  EXPECT_EQ(options.limits.frames, 100U);
  EXPECT_EQ(options.limits.duration_s, 2.5);
  EXPECT_EQ(options.limits.timeout_s, 7.0);
  EXPECT_EQ(options.picture_path, "last.png");
  EXPECT_TRUE(options.json);
}

TEST(CommandLine, Stream_WithoutOptionsHasNoLimits) {
  const auto options = std::get<StreamOptions>(invocationOf({"stream"}).command);
  EXPECT_FALSE(options.serial_number);
  EXPECT_FALSE(options.limits.frames);
  EXPECT_FALSE(options.limits.duration_s);
  EXPECT_EQ(options.limits.timeout_s, 5.0);
  EXPECT_FALSE(options.picture_path);
}

TEST(CommandLine, CalibrationFolder_ComesFromTheEnvironmentToo) {
  ::setenv("KEOCAM_DATA_DIR", "/from/environment", 1);
  EXPECT_EQ(std::get<CameraInfoOptions>(invocationOf({"info"}).command).calibrations, "/from/environment");
  EXPECT_EQ(std::get<CameraInfoOptions>(invocationOf({"info", "--calibrations", "/given"}).command).calibrations,
            "/given");
  ::unsetenv("KEOCAM_DATA_DIR");
  EXPECT_EQ(std::get<CameraInfoOptions>(invocationOf({"info"}).command).calibrations, "");
}

TEST(CommandLine, Verbosity_IsTakenOnBothSidesOfTheVerb) {
  EXPECT_EQ(invocationOf({"list"}).verbosity, Verbosity::Normal);
  EXPECT_EQ(invocationOf({"-q", "list"}).verbosity, Verbosity::Quiet);
  EXPECT_EQ(invocationOf({"list", "--quiet"}).verbosity, Verbosity::Quiet);
  EXPECT_EQ(invocationOf({"stream", "-v"}).verbosity, Verbosity::Verbose);
  EXPECT_EQ(answerOf({"-q", "list", "-v"}).status, ExitStatus::Usage);
}

TEST(CommandLine, Simulate_PassesEverythingOn) {
  const Arguments passed = {"--help", "-q", "--cameras", "2", "list", "--", "-x", ""};
  Arguments arguments = {"-v", "simulate"};
  arguments.insert(arguments.end(), passed.begin(), passed.end());
  const Invocation invocation = invocationOf(arguments);
  EXPECT_EQ(std::get<SimulateOptions>(invocation.command).arguments, passed);
}

TEST(CommandLine, WrongVerb_SuggestsTheNearOne) {
  expectUsage({"strem"}, "\"strem\"; did you mean \"stream\"?");
  expectUsage({"frobnicate"}, "no verb \"frobnicate\"\n");
  expectUsage({""}, "no verb \"\"");
}

TEST(CommandLine, NoVerb_IsSaid) {
  expectUsage({}, "A verb is missing");
  expectUsage({"-v"}, "A verb is missing");
}

TEST(CommandLine, WrongOption_SuggestsTheNearOne) {
  expectUsage({"stream", "--farmes", "5"}, "--farmes");
  expectUsage({"stream", "--frame", "5"}, "did you mean \"--frames\"?");
  expectUsage({"list", "--jsn"}, "did you mean \"--json\"?");
  expectUsage({"--vebose", "list"}, "did you mean \"--verbose\"?");
}

TEST(CommandLine, WrongValues_AreRefusedByTheNameOfTheirOption) {
  for (const char* const value : {"0", "-1", "many", "1.5", "99999999999999999999"}) {
    expectUsage({"stream", "--frames", value}, "--frames");
  }
  for (const char* const value : {"0", "-1", "nan", "inf", "long", "1e300"}) {
    expectUsage({"stream", "--duration", value}, "--duration");
    expectUsage({"stream", "--timeout", value}, "--timeout");
  }
  expectUsage({"stream", "--timeout", "0.5"}, "--timeout");
  expectUsage({"stream", "--camera"}, "--camera");
}

TEST(CommandLine, StrayWord_IsRefused) { expectUsage({"list", "KEOD2001"}, "KEOD2001"); }

TEST(CommandLine, ControlCharactersInArguments_AreEscapedInTheAnswer) {
  const Answer answer = answerOf({"list", "--\x1b[2J"});
  EXPECT_EQ(answer.text.find('\x1b'), std::string::npos);
}

TEST(CommandLine, Help_ListsVerbsExamplesAndExitStatuses) {
  const Answer help = answerOf({"--help"});
  EXPECT_EQ(help.status, ExitStatus::Ok);
  for (const char* const part :
       {"list", "stream", "simulate", "keocam list --json", "keocam stream --camera", "keocam simulate --cameras",
        "  0  success", "  5  the camera or its core does not answer"}) {
    EXPECT_NE(help.text.find(part), std::string::npos) << part;
  }
  const Answer stream_help = answerOf({"stream", "--help"});
  EXPECT_NE(stream_help.text.find("--picture"), std::string::npos);
}

TEST(CommandLine, Version_IsPrinted) {
  const Answer version = answerOf({"--version"});
  EXPECT_EQ(version.status, ExitStatus::Ok);
  EXPECT_EQ(version.text.rfind("keocam ", 0), 0U) << version.text;
}

}  // namespace
}  // namespace keocam::cli
