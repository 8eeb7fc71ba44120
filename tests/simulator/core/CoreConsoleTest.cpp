// The program's options for cores, and the console commands that show and disturb them.
#include "simulator/CoreConsole.h"

#include <gtest/gtest.h>

#include "CoreBench.h"
#include "simulator/CommandLine.h"
#include "simulator/ConsoleCommands.h"

namespace {

using namespace simulator;

std::variant<ProgramOptions, int> parse(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "keocam-simulator");
  return parseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}

std::string partNumberOf(ThermalCore& core) {
  const Bytes request = core_test::request(102);
  const Bytes bytes = core.receive(request.data(), request.size(), ThermalCore::kLine).bytes;
  const Bytes part = core_test::parse(bytes).payload;
  return std::string(part.begin(), std::find(part.begin(), part.end(), '^'));
}

CoreFaultSetting faultOf(const ThermalCore& core, CoreFault fault) {
  return core.faults()[static_cast<std::size_t>(fault)];
}

TEST(CoreCommandLine, EachCamera_GetsACoreOfItsOwn) {
  const auto parsed = parse({"--cameras", "2", "--size", "336x256", "--core-serial", "500"});
  const auto& cameras = std::get<ProgramOptions>(parsed).cameras;
  ASSERT_EQ(cameras.size(), 2U);
  ASSERT_TRUE(cameras[0].core && cameras[1].core);
  EXPECT_NE(cameras[0].core, cameras[1].core);
  EXPECT_EQ(partNumberOf(*cameras[0].core), "46336001H-FRNLX");
  const Bytes request = core_test::request(4);
  const Bytes serials = cameras[1].core->receive(request.data(), request.size(), ThermalCore::kLine).bytes;
  EXPECT_EQ(loadU32(core_test::parse(serials).payload.data()), 501U);
}

TEST(CoreCommandLine, PartNumberAndFaults_AreTakenOver) {
  const auto parsed = parse({"--core-part-number", "46640019H-SPNLX", "--core-late", "30", "--core-no-answer", "1000",
                             "3", "--core-deaf", "1000", "0", "40"});
  ThermalCore& core = *std::get<ProgramOptions>(parsed).cameras.at(0).core;
  EXPECT_FALSE(core.radiometric());
  EXPECT_EQ(faultOf(core, CoreFault::LateAnswer).value, 30U);
  EXPECT_EQ(faultOf(core, CoreFault::LateAnswer).frames, CoreFaultSetting::kForGood);
  EXPECT_EQ(faultOf(core, CoreFault::NoAnswer).value, 1000U);
  EXPECT_EQ(faultOf(core, CoreFault::NoAnswer).frames, 3U);
  EXPECT_EQ(faultOf(core, CoreFault::Deaf).frames, CoreFaultSetting::kForGood);
  EXPECT_EQ(faultOf(core, CoreFault::Deaf).after, 40U);
}

TEST(CoreCommandLine, NoCore_LeavesTheSerialPortEmpty) {
  EXPECT_FALSE(std::get<ProgramOptions>(parse({"--no-core"})).cameras.at(0).core);
}

TEST(CoreCommandLine, Mistakes_AreUsageErrors) {
  const std::vector<std::vector<const char*>> mistakes = {{"--core-part-number", "A^B"},
                                                          {"--core-no-answer", "1001"},
                                                          {"--core-late", "1", "2", "3", "4"},
                                                          {"--no-core", "--core-serial", "5"},
                                                          {"--core-wrong-status", "256"}};
  for (const auto& arguments : mistakes) {
    const auto parsed = parse(arguments);
    ASSERT_TRUE(std::holds_alternative<int>(parsed)) << arguments[0];
    EXPECT_EQ(std::get<int>(parsed), 2) << arguments[0];
  }
}

class CoreConsole : public ::testing::Test {
 protected:
  CoreConsole() {
    for (const bool with_core : {true, false}) {
      CameraOptions options;
      options.address = with_core ? "127.0.0.2" : "127.0.0.3";
      options.serial = with_core ? "KEOD2001" : "KEOD2002";
      options.sensor = {160, 128};
      if (with_core) options.core = core;
      cameras.push_back(std::make_unique<SimulatedCamera>(options));
    }
  }
  std::string say(const std::string& line) { return executeConsoleLine(line, cameras).text; }
  std::shared_ptr<ThermalCore> core = std::make_shared<ThermalCore>();
  Cameras cameras;
};

TEST_F(CoreConsole, Faults_AreSwitchedAndCleared) {
  EXPECT_EQ(say("1 core-late 40"), "");
  EXPECT_EQ(say("1 core-wrong-status 9 2"), "");
  EXPECT_EQ(faultOf(*core, CoreFault::LateAnswer).value, 40U);
  EXPECT_EQ(faultOf(*core, CoreFault::WrongStatus).value, 9U);
  EXPECT_EQ(faultOf(*core, CoreFault::WrongStatus).frames, 2U);
  EXPECT_EQ(say("1 core-deaf 1000 2 5"), "");
  EXPECT_EQ(faultOf(*core, CoreFault::Deaf).after, 5U);
  EXPECT_EQ(say("1 core-ok"), "");
  EXPECT_EQ(faultOf(*core, CoreFault::LateAnswer).value, 0U);
}

TEST_F(CoreConsole, Mistakes_ChangeNothingAndAreExplained) {
  EXPECT_EQ(say("1 core-late"), "usage: core-late MS [FRAMES [AFTER]]\n");
  EXPECT_EQ(say("1 core-no-answer 1001"), "usage: core-no-answer PERMILLE [FRAMES [AFTER]]\n");
  EXPECT_EQ(say("1 core-cut 1 x"), "usage: core-cut BYTES [FRAMES [AFTER]]\n");
  EXPECT_EQ(say("1 core-log many"), "usage: core-log [LINES]\n");
  EXPECT_EQ(say("1 core-ok now"), "usage: core-ok \n");
  EXPECT_EQ(say("2 core-late 5"), "camera KEOD2002 has no core\n");
  EXPECT_EQ(faultOf(*core, CoreFault::LateAnswer).value, 0U);
}

TEST_F(CoreConsole, Log_ShowsTheLastFrames) {
  EXPECT_EQ(say("1 core-log"), "nothing has been received\n");
  for (const uint16_t value : {uint16_t{1}, uint16_t{2}}) {
    const Bytes request = core_test::request(20, core_test::wordBytes(value));
    core->receive(request.data(), request.size(), ThermalCore::kLine);
  }
  const std::string last = say("1 core-log 1");
  EXPECT_EQ(std::count(last.begin(), last.end(), '\n'), 1);
  EXPECT_NE(last.find("frame: 6e 00 00 14 00 02"), std::string::npos) << last;
  EXPECT_NE(last.find("00 02 20 42 -> status 0x00: 6e 00"), std::string::npos) << last;
  const std::string both = say("1 core-log");
  EXPECT_EQ(std::count(both.begin(), both.end(), '\n'), 2);
}

TEST_F(CoreConsole, HelpAndStatus_SpeakOfTheCore) {
  const std::string help = say("help");
  for (const CoreFaultKnob& knob : coreFaultKnobs()) EXPECT_NE(help.find(knob.name), std::string::npos);
  EXPECT_NE(help.find("core-log [LINES]"), std::string::npos);
  EXPECT_NE(say("1 status").find("core: sensor 2"), std::string::npos);
  EXPECT_NE(say("1 status").find("core's flash: 0 erases, 0 writes, 0 refused writes, 0 reads; lens slot 0"),
            std::string::npos);
  EXPECT_EQ(say("2 status").find("core: sensor"), std::string::npos);
}

}  // namespace
