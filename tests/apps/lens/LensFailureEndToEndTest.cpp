// keocam lens where name, calibration, core or camera do not play along.
#include <gtest/gtest.h>

#include <fstream>

#include "CameraWithLenses.h"

namespace keocam::cli {
namespace {

using simulator::CoreFault;
using simulator::CoreFaultSetting;

constexpr uint8_t kWriteMemory = 211;
constexpr uint8_t kReadMemoryCode = 210;

TEST(KeocamLensFailure, UnknownName_IsStatus1AndSendsNothing) {
  CameraWithLenses simulated;
  const Ended set = keocam(simulated.lens({"set", "L26mm"}));
  EXPECT_EQ(set.status, 1);
  EXPECT_TRUE(contains(set.error, "did you mean \"L25mm\"? It has: L25mm, L13mm, L07mm.")) << set.error;
  EXPECT_FALSE(simulated.whole().heardAnything());
}

TEST(KeocamLensFailure, NoCalibrations_AreToldAndNothingIsSent) {
  CameraWithLenses simulated;
  EXPECT_EQ(keocam({"lens", "set", "L25mm"}).status, 2);
  EXPECT_EQ(keocam({"lens", "current"}).status, 2);
  EXPECT_EQ(keocam({"lens", "list"}).status, 2);
  const Ended list = keocam(simulated.lens({"list", "--camera", "KEOD2002"}));
  EXPECT_EQ(list.status, 1);
  EXPECT_TRUE(contains(list.error, "There is no calibration for \"KEOD2002\"")) << list.error;
  const Ended lost = keocam({"lens", "list", "--calibrations", "no/such/folder", "--camera", "KEOD2002"});
  EXPECT_EQ(lost.status, 1);
  EXPECT_TRUE(contains(lost.error, "The folder of calibrations \"no/such/folder\" does not exist.")) << lost.error;
  EXPECT_FALSE(simulated.whole().heardAnything());
}

TEST(KeocamLensFailure, CalibrationThatEndsEarly_IsRefusedBeforeAnythingIsSent) {
  CameraWithLenses simulated;
  std::fstream(simulated.text(), std::ios::in | std::ios::out) << "BB:x";
  for (const Arguments& verb : {Arguments{"set", "L25mm"}, Arguments{"current"}, Arguments{"list"}}) {
    const Ended refused = keocam(simulated.lens(verb));
    EXPECT_EQ(refused.status, 1) << refused.error;
    EXPECT_TRUE(contains(refused.error, "keocam calibration check ")) << refused.error;
  }
  EXPECT_FALSE(simulated.whole().heardAnything());
}

TEST(KeocamLensFailure, DoubtfulCalibration_IsWarnedOf) {
  CameraWithLenses simulated;
  std::fstream file(simulated.text(), std::ios::in | std::ios::out);
  const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  file.seekp(static_cast<std::streamoff>(text.find("SffcLowRange:") + 20));
  file << 'g';
  file.close();
  const Ended set = keocam(simulated.lens({"set", "L25mm", "--no-verify"}));
  EXPECT_EQ(set.status, 0) << set.error;
  EXPECT_TRUE(contains(set.error, "warning: Something is wrong with the calibration")) << set.error;
}

TEST(KeocamLensFailure, TableOfAnotherSize_IsToldWithBothAndNothingIsErased) {
  const TemporaryFolder folder;
  simulator::CalibrationOptions options;
  options.table_bytes = 4000;
  simulator::writeCalibrationEntry(folder.path().string(), "KEOD2001", options);
  CameraWithLenses simulated;
  simulated.putIn(0, 0);
  const Ended set = keocam({"lens", "set", "L25mm", "--calibrations", folder.path().string()});
  EXPECT_EQ(set.status, 1) << set.error;
  EXPECT_TRUE(contains(set.error, "table has 4000 bytes, but the core's place for it has 5000.")) << set.error;
  EXPECT_TRUE(contains(set.error, "Nothing has changed in the core.")) << set.error;
  EXPECT_TRUE(simulated.holds(0));
  EXPECT_EQ(simulated.core().flashCounters().erases, 0U);
}

TEST(KeocamLensFailure, CoreSilentInTheMiddle_IsStatus5AndTellsTheTables) {
  CameraWithLenses simulated;
  simulated.putIn(0, 0);
  simulated.core().setFault(CoreFault::NoAnswer, CoreFaultSetting{1000, CoreFaultSetting::kForGood, 50, kWriteMemory});
  const Ended set = keocam(simulated.lens({"set", "L13mm", "--no-verify"}));
  EXPECT_EQ(set.status, 5) << set.error;
  EXPECT_TRUE(contains(set.error, "The low-range table: written.")) << set.error;
  EXPECT_TRUE(contains(set.error, "The middle-range table: only partly erased or written.")) << set.error;
  EXPECT_TRUE(contains(set.error, "does not answer any more")) << set.error;
  simulated.core().clearFaults();
  EXPECT_EQ(keocam(simulated.lens({"current"})).status, 1);
  EXPECT_EQ(keocam(simulated.lens({"set", "L13mm", "--no-verify"})).status, 0);
  EXPECT_TRUE(simulated.holds(1));
}

TEST(KeocamLensFailure, SilentCore_IsStatus5) {
  CameraWithLenses simulated;
  simulated.core().setFault(CoreFault::NoAnswer, 1000);
  EXPECT_EQ(keocam(simulated.lens({"set", "L13mm"})).status, 5);
  EXPECT_EQ(keocam(simulated.lens({"current"})).status, 5);
  EXPECT_EQ(simulated.whole().asked(), std::vector<int>{});
}

TEST(KeocamLensFailure, CoreThatRefusesAPiece_IsStatus1) {
  CameraWithLenses simulated;
  simulated.core().setFault(CoreFault::WrongStatus, CoreFaultSetting{0x02, 1, 3, kWriteMemory});
  const Ended set = keocam(simulated.lens({"set", "L13mm"}));
  EXPECT_EQ(set.status, 1) << set.error;
  EXPECT_TRUE(contains(set.error, "The core did not take the bytes at 384.")) << set.error;
}

TEST(KeocamLensFailure, SomeAnswersLostWhileSamplesAreRead_AreAskedForAgain) {
  CameraWithLenses simulated;
  simulated.putIn(1, 1);
  simulated.core().setFault(CoreFault::NoAnswer, CoreFaultSetting{1000, 2, 1, kReadMemoryCode});
  const Ended current = keocam(simulated.lens({"current"}));
  EXPECT_EQ(current.status, 0) << current.error;
  EXPECT_EQ(current.output, "L13mm\n");
}

TEST(KeocamLensFailure, SomeAnswersLostWhilePiecesAreWritten_PiecesAreWrittenAgain) {
  CameraWithLenses simulated;
  simulated.core().setFault(CoreFault::NoAnswer, CoreFaultSetting{1000, 2, 5, kWriteMemory});
  const Ended set = keocam(simulated.lens({"set", "L13mm"}));
  EXPECT_EQ(set.status, 0) << set.error;
  EXPECT_TRUE(contains(set.error, "written and verified.")) << set.error;
  EXPECT_TRUE(simulated.holds(1));
  const uint32_t pieces = 2 * ((CameraWithLenses::kSmallTable_bytes + 127) / 128);
  EXPECT_EQ(simulated.core().flashCounters().writes, pieces + 2);
}

TEST(KeocamLensFailure, CameraThatVanishesMeanwhile_IsStatus5ThatTellsTheTables) {
  CameraWithLenses simulated(81920);
  ChildProcess process(keocamWith(simulated.lens({"set", "L13mm"})));
  ASSERT_TRUE(process.waitFor(ChildProcess::Error, "Writing the low-range table", kPatience));
  simulated.camera().faults().vanish();
  const Ended set = ended(process);
  EXPECT_EQ(set.status, 5) << set.error;
  EXPECT_TRUE(contains(set.error, "The low-range table: only partly erased or written.")) << set.error;
  EXPECT_TRUE(contains(set.error, "The connection to KEOD2001 at 127.0.0.2 was lost")) << set.error;
  EXPECT_TRUE(contains(set.error, "Check its power and its cable.")) << set.error;
}

}  // namespace
}  // namespace keocam::cli
