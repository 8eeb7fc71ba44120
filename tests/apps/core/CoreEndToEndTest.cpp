// keocam core and keocam ffc, against a core in software.
#include <gtest/gtest.h>

#include <cstdlib>
#include <nlohmann/json.hpp>

#include "../KeocamRun.h"
#include "CameraWithCore.h"

namespace keocam::cli {
namespace {

constexpr int kContrast = 20;
constexpr int kFactoryContrast = 32;

// The program on a terminal of its own; what it says comes back on the output, whatever stream it was.
ChildProcess::Stream onTerminal(Arguments& command, const std::string& arguments) {
  ::setenv("KEOCAM_UNDER_TEST", KEOCAM_PROGRAM, 1);
  command = {"script", "-qec", "exec \"$KEOCAM_UNDER_TEST\" " + arguments, "/dev/null"};
  return ChildProcess::Output;
}

// Answers the question of factory-defaults.
Ended answered(const std::string& answer) {
  Arguments command;
  const ChildProcess::Stream terminal = onTerminal(command, "core factory-defaults");
  ChildProcess process(command);
  EXPECT_TRUE(process.waitFor(terminal, "[y/N]", kPatience)) << process.text(terminal);
  process.send(answer);
  return ended(process);
}

TEST(KeocamCore, Info_TellsWhatTheCoreSays) {
  const CameraWithCore simulated;
  const Ended info = keocam({"core", "info"});
  EXPECT_EQ(info.status, 0) << info.error;
  EXPECT_EQ(info.error, "");
  EXPECT_TRUE(contains(info.output, "KEOD2001 at 127.0.0.2")) << info.output;
  EXPECT_FALSE(contains(info.output, "not read")) << info.output;
  EXPECT_TRUE(contains(info.output, " °C\n")) << info.output;
}

TEST(KeocamCore, InfoAsJson_HasTheCoresNumbers) {
  CameraWithCore simulated;
  const Ended info = keocam({"core", "info", "--json"});
  EXPECT_EQ(info.status, 0) << info.error;
  const auto object = nlohmann::json::parse(info.output);
  const simulator::CoreIdentity identity;
  EXPECT_EQ(object["core_serial_number"], identity.core_serial);
  EXPECT_EQ(object["sensor_serial_number"], identity.sensor_serial);
  EXPECT_EQ(object["part_number"].get<std::string>().rfind(identity.part_number, 0), 0U) << info.output;
  const double housing_celsius = object["housing_temperature_celsius"];
  EXPECT_NEAR(housing_celsius, simulated.core().temperatures().housing_celsius, 2.0);
  EXPECT_EQ(object.count("errors"), 0U);
}

TEST(KeocamFfc, Command_IsCarriedOutAndSaidSo) {
  CameraWithCore simulated;
  const uint64_t before = simulated.core().ffcCount();
  const Ended ffc = keocam({"ffc"});
  EXPECT_EQ(ffc.status, 0) << ffc.error;
  EXPECT_EQ(ffc.output, "");
  EXPECT_TRUE(contains(ffc.error, "accepted the flat-field correction")) << ffc.error;
  EXPECT_EQ(simulated.core().ffcCount(), before + 1);
}

TEST(KeocamCore, Reset_WaitsUntilTheCoreAnswersWithItsPowerOnSettings) {
  CameraWithCore simulated;
  EXPECT_EQ(keocam({"set", "contrast=99"}).status, 0);
  const Ended reset = keocam({"core", "reset"});
  EXPECT_EQ(reset.status, 0) << reset.error;
  EXPECT_TRUE(contains(reset.error, "Waiting for the core")) << reset.error;
  EXPECT_TRUE(contains(reset.error, "answers again after")) << reset.error;
  EXPECT_EQ(simulated.core().word(kContrast), kFactoryContrast);
}

TEST(KeocamCore, QuietReset_SaysNothing) {
  const CameraWithCore simulated;
  const Ended reset = keocam({"-q", "core", "reset"});
  EXPECT_EQ(reset.status, 0);
  EXPECT_EQ(reset.error, "");
}

TEST(KeocamCore, ResetOfACoreThatStaysSilent_IsStatus5) {
  CameraWithCore simulated;
  ChildProcess process(keocamWith({"core", "reset"}));
  ASSERT_TRUE(process.waitFor(ChildProcess::Error, "Waiting for the core", kPatience));
  simulated.core().setFault(simulator::CoreFault::NoAnswer, 1000);
  const Ended reset = ended(process);
  EXPECT_EQ(reset.status, 5);
  EXPECT_TRUE(contains(reset.error, "does not answer again")) << reset.error;
}

TEST(KeocamCore, Defaults_KeepThePresentSettingsForPowerUp) {
  CameraWithCore simulated;
  EXPECT_EQ(keocam({"set", "contrast=99"}).status, 0);
  EXPECT_FALSE(simulated.core().powerOnSettings() == simulated.core().settings());
  EXPECT_EQ(keocam({"core", "defaults"}).status, 0);
  EXPECT_TRUE(simulated.core().powerOnSettings() == simulated.core().settings());
  EXPECT_EQ(simulated.core().word(kContrast), 99);
}

TEST(KeocamCore, FactoryDefaultsWithYes_AreRestored) {
  CameraWithCore simulated;
  EXPECT_EQ(keocam({"set", "contrast=99"}).status, 0);
  const Ended factory = keocam({"core", "factory-defaults", "--yes"});
  EXPECT_EQ(factory.status, 0) << factory.error;
  EXPECT_EQ(simulated.core().word(kContrast), kFactoryContrast);
}

TEST(KeocamCore, FactoryDefaultsWithNobodyToAsk_AreRefusedAndNothingIsSent) {
  const CameraWithCore simulated;
  const Ended factory = keocam({"core", "factory-defaults"});
  EXPECT_EQ(factory.status, 2);
  EXPECT_TRUE(contains(factory.error, "--yes")) << factory.error;
  EXPECT_FALSE(simulated.heardAnything());
}

TEST(KeocamCore, FactoryDefaultsOnATerminal_AreRestoredAfterAYes) {
  const CameraWithCore simulated;
  const Ended factory = answered("y");
  EXPECT_EQ(factory.status, 0) << factory.output;
  EXPECT_TRUE(contains(factory.output, "KEOD2001")) << factory.output;
  EXPECT_EQ(simulated.asked(), std::vector<int>{static_cast<int>(simulator::FunctionCode::FactoryDefaults)});
}

TEST(KeocamCore, FactoryDefaultsOnATerminal_AnyOtherAnswerSendsNothing) {
  for (const char* const answer : {"n", "", "yesterday"}) {
    const CameraWithCore simulated;
    const Ended factory = answered(answer);
    EXPECT_EQ(factory.status, 1) << factory.output;
    EXPECT_TRUE(contains(factory.output, "Nothing was changed")) << factory.output;
    EXPECT_FALSE(simulated.heardAnything()) << answer;
  }
}

}  // namespace
}  // namespace keocam::cli
