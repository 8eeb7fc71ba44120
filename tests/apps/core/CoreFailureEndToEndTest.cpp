// The core's verbs where camera or core do not play along: what is said, and the exit status.
#include <gtest/gtest.h>

#include "../KeocamRun.h"
#include "CameraWithCore.h"

namespace keocam::cli {
namespace {

// One of each kind: they share the way to the core.
const std::vector<Arguments> kVerbs = {
    {"core", "info"}, {"get", "contrast"}, {"set", "contrast=40"}, {"ffc"}, {"core", "factory-defaults", "--yes"}};

void expectSilentCore(const Arguments& verb) {
  const Ended silent = keocam(verb);
  EXPECT_EQ(silent.status, 5) << silent.error;
  EXPECT_EQ(silent.output, "");
  EXPECT_TRUE(contains(silent.error, "The thermal core of KEOD2001 at 127.0.0.2 does not answer")) << silent.error;
  EXPECT_FALSE(contains(silent.error, "CameraSerialSettings")) << silent.error;
}

TEST(KeocamCoreFailure, SilentCore_IsStatus5AndGetsNothingButNoOperations) {
  CameraWithCore simulated;
  simulated.core().setFault(simulator::CoreFault::NoAnswer, 1000);
  for (const Arguments& verb : kVerbs) expectSilentCore(verb);
  EXPECT_TRUE(simulated.heardAnything());
  EXPECT_EQ(simulated.asked(), std::vector<int>{});
}

TEST(KeocamCoreFailure, NoCoreAtAll_IsStatus5) {
  const Simulator simulator({"--no-core", "--size", "160x128"});
  expectSilentCore({"core", "info"});
}

TEST(KeocamCoreFailure, CoreThatRefusesEverything_IsStatus1WithTheStatusInWords) {
  CameraWithCore simulated;
  simulated.core().setFault(simulator::CoreFault::WrongStatus, 0x05);
  const Ended info = keocam({"core", "info"});
  EXPECT_EQ(info.status, 1) << info.error;
  EXPECT_TRUE(contains(info.error, "(CAM_UNDEFINED_PROCESS_ERROR)")) << info.error;
  EXPECT_EQ(simulated.asked(), std::vector<int>{});
}

TEST(KeocamCoreFailure, BridgeThatAnotherProgramSetOtherwise_IsSetUp) {
  const CameraWithCore simulated;
  ChildProcess other({"arv-tool-0.8", "-a", "127.0.0.2", "control", "BulkMode=Off", "BulkBaudRate=Baud9600",
                      "BulkNumOfStopBits=Two", "BulkParity=Even", "BulkLoopback=true"});
  const Ended set = ended(other);
  ASSERT_EQ(set.status, 0) << set.error;
  ASSERT_TRUE(contains(set.output, "Baud9600")) << set.output;
  const Ended info = keocam({"core", "info"});
  EXPECT_EQ(info.status, 0) << info.error;
}

TEST(KeocamCoreFailure, CameraInUse_IsStatus4) {
  CameraWithCore simulated;
  simulated.camera().setOccupied(true);
  for (const Arguments& verb : kVerbs) {
    const Ended occupied = keocam(verb);
    EXPECT_EQ(occupied.status, 4) << occupied.error;
    EXPECT_TRUE(contains(occupied.error, "in use")) << occupied.error;
  }
  EXPECT_FALSE(simulated.heardAnything());
}

TEST(KeocamCoreFailure, NoCamera_IsStatus3) {
  for (const Arguments& verb : kVerbs) EXPECT_EQ(keocam(verb).status, 3);
}

TEST(KeocamCoreFailure, WrongSerialNumber_IsStatus3WithTheNearOne) {
  const CameraWithCore simulated;
  const Ended get = keocam({"get", "--camera", "KEOD2011"});
  EXPECT_EQ(get.status, 3);
  EXPECT_TRUE(contains(get.error, "did you mean \"KEOD2001\"?")) << get.error;
}

TEST(KeocamCoreFailure, CameraThatVanishesMeanwhile_IsStatus5ThatSaysSo) {
  CameraWithCore simulated;
  ChildProcess process(keocamWith({"get"}));
  ASSERT_TRUE(simulated.waitUntilAsked(kPatience));
  simulated.core().setFault(simulator::CoreFault::NoAnswer, 1000);  // So that the end is not reached before.
  simulated.camera().faults().vanish();
  const Ended get = ended(process);
  EXPECT_EQ(get.status, 5) << get.error;
  EXPECT_TRUE(contains(get.error, "The connection to KEOD2001 at 127.0.0.2 was lost")) << get.error;
}

TEST(KeocamCoreFailure, CameraThatVanishesDuringAReset_IsStatus5ThatSaysSo) {
  CameraWithCore simulated;
  ChildProcess process(keocamWith({"core", "reset"}));
  ASSERT_TRUE(process.waitFor(ChildProcess::Error, "Waiting for the core", kPatience));
  simulated.core().setFault(simulator::CoreFault::NoAnswer, 1000);
  simulated.camera().faults().vanish();
  const Ended reset = ended(process);
  EXPECT_EQ(reset.status, 5) << reset.error;
  EXPECT_TRUE(contains(reset.error, "was lost")) << reset.error;
}

}  // namespace
}  // namespace keocam::cli
