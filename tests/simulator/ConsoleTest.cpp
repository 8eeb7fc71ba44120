// The program's options and its console commands.
#include <gtest/gtest.h>

#include "simulator/CommandLine.h"
#include "simulator/ConsoleCommands.h"

namespace {

using namespace simulator;

std::variant<ProgramOptions, int> parse(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "keocam-simulator");
  return parseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

TEST(CommandLine, SeveralCameras_CountAddressesAndSerialsUpwards) {
  const auto parsed =
      parse({"--cameras", "3", "--address", "127.0.1.254", "--serial", "ABCC0099", "--size", "336x256"});
  const auto& program = std::get<ProgramOptions>(parsed);
  ASSERT_EQ(program.cameras.size(), 3U);
  EXPECT_EQ(program.cameras[2].address, "127.0.2.0");
  EXPECT_EQ(program.cameras[0].serial, "ABCC0099");
  EXPECT_EQ(program.cameras[1].serial, "ABCC0100");
  EXPECT_TRUE(program.cameras[1].sensor == (ImageSize{336, 256}));
}

TEST(CommandLine, Faults_AreTakenOver) {
  const auto parsed = parse({"--loss", "10", "--late", "5", "30", "--ignore-heartbeat", "--uart-pacing", "off"});
  const CameraOptions& camera = std::get<ProgramOptions>(parsed).cameras.at(0);
  EXPECT_EQ(camera.faults.loss_permille, 10U);
  EXPECT_EQ(camera.faults.late_permille, 5U);
  EXPECT_EQ(camera.faults.late_ms, 30U);
  EXPECT_TRUE(camera.faults.ignore_heartbeat);
  EXPECT_FALSE(camera.uart_pacing);
}

TEST(CommandLine, Mistakes_AreUsageErrors) {
  const std::vector<std::vector<const char*>> mistakes = {{"--size", "641x512"},
                                                          {"--loss", "1001"},
                                                          {"--late", "5"},
                                                          {"--cameras", "0"},
                                                          {"--address", "127.0.0"},
                                                          {"--fps", "0"},
                                                          {"--nonsense"},
                                                          {"--cameras", "2", "--serial", "NODIGITS"},
                                                          {"--interface", "lo", "--address", "127.0.0.2"}};
  for (const auto& arguments : mistakes) {
    const auto parsed = parse(arguments);
    ASSERT_TRUE(std::holds_alternative<int>(parsed)) << arguments[0];
    EXPECT_EQ(std::get<int>(parsed), 2) << arguments[0];
  }
}

TEST(CommandLine, UnknownInterface_Throws) { EXPECT_THROW(parse({"--interface", "nosuch0"}), std::runtime_error); }

class Console : public ::testing::Test {
 protected:
  Console() {
    for (const auto& [address, serial] : {std::pair("127.0.0.2", "KEOD2001"), std::pair("127.0.0.3", "KEOD2002")}) {
      CameraOptions options;
      options.address = address;
      options.serial = serial;
      options.sensor = {160, 128};
      cameras.push_back(std::make_unique<SimulatedCamera>(options));
    }
  }
  std::string say(const std::string& line) { return executeConsoleLine(line, cameras).text; }
  FaultSettings faultsOf(std::size_t index) { return cameras[index]->faults().settings(); }
  Cameras cameras;
};

TEST_F(Console, Fault_IsSetForAllCamerasOrForOne) {
  EXPECT_EQ(say("loss 10"), "");
  EXPECT_EQ(say("2 late 5 20"), "");
  EXPECT_EQ(faultsOf(0).loss_permille, 10U);
  EXPECT_EQ(faultsOf(1).loss_permille, 10U);
  EXPECT_EQ(faultsOf(0).late_permille, 0U);
  EXPECT_EQ(faultsOf(1).late_permille, 5U);
  EXPECT_EQ(faultsOf(1).late_ms, 20U);
}

TEST_F(Console, Mistakes_ChangeNothingAndAreExplainedOnce) {
  EXPECT_EQ(say("los 10"), "unknown command 'los'; \"help\" lists them\n");
  EXPECT_EQ(say("loss"), "usage: loss PERMILLE\n");
  EXPECT_EQ(say("loss 1001"), "usage: loss PERMILLE\n");
  EXPECT_EQ(say("loss -1"), "usage: loss PERMILLE\n");
  EXPECT_EQ(say("late 5"), "usage: late PERMILLE MS\n");
  EXPECT_EQ(say("freeze soon"), "usage: freeze MS\n");
  EXPECT_EQ(say("occupied maybe"), "usage: occupied on|off\n");
  EXPECT_EQ(say("3 loss 10"), "there is no camera 3; the number is 1 to 2\n");
  EXPECT_EQ(say("1"), "a command is missing after the camera's number; \"help\" lists them\n");
  EXPECT_EQ(faultsOf(0).loss_permille, 0U);
}

TEST_F(Console, States_AreSwitched) {
  EXPECT_EQ(say("1 occupied on"), "");
  EXPECT_TRUE(cameras[0]->controlled());
  EXPECT_FALSE(cameras[1]->controlled());
  EXPECT_EQ(say("drop-control"), "");
  EXPECT_EQ(say("2 freeze 60000"), "");
  EXPECT_TRUE(cameras[1]->faults().frozen());
  EXPECT_EQ(say("1 vanish"), "");
  EXPECT_TRUE(cameras[0]->faults().vanished());
  EXPECT_EQ(say("1 return"), "");
  EXPECT_FALSE(cameras[0]->faults().vanished());
  EXPECT_EQ(say("ignore-heartbeat on"), "");
  EXPECT_TRUE(faultsOf(1).ignore_heartbeat);
}

TEST_F(Console, HelpStatusAndQuit_Answer) {
  const std::string help = say("help");
  for (const FaultKnob& knob : faultKnobs()) EXPECT_NE(help.find(knob.name), std::string::npos);
  EXPECT_NE(say("status").find("KEOD2002 127.0.0.3, free"), std::string::npos);
  EXPECT_EQ(say("  "), "");
  EXPECT_TRUE(executeConsoleLine("quit", cameras).quit);
  EXPECT_FALSE(executeConsoleLine("status", cameras).quit);
}

}  // namespace
