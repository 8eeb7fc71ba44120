// keocam lens, against a core in software that has a flash.
#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <nlohmann/json.hpp>

#include "CameraWithLenses.h"

namespace keocam::cli {
namespace {

using nlohmann::json;

constexpr int kUseSlot = 30;
constexpr int kDoFfc = 12;
constexpr int kReadMemory = 210;
constexpr int kSlotRegion = 214;

TEST(KeocamLens, List_NeedsNoCamera) {
  const TemporaryFolder folder;
  simulator::CalibrationOptions options;
  options.sensor = {160, 128};
  options.lenses = simulator::usualLenses(2, 1);
  simulator::writeCalibrationEntry(folder.path().string(), "KEOD2007", options);
  const Ended list = keocam({"lens", "list", "--camera", "KEOD2007", "--calibrations", folder.path().string()});
  EXPECT_EQ(list.status, 0) << list.error;
  EXPECT_EQ(list.error, "");
  EXPECT_EQ(list.output,
            "LENS   DATE        RANGES             TABLE BYTES  SENSOR\n"
            "L25mm  2026-03-02  low, middle, high  81920        160x128\n"
            "L13mm  2026-03-02  low, middle        81920        160x128\n");
}

TEST(KeocamLens, ListWithoutACameraNamed_IsThatOfTheOnlyOneAndAsksItNothing) {
  CameraWithLenses simulated;
  const Ended list = keocam(simulated.lens({"list", "--json"}));
  EXPECT_EQ(list.status, 0) << list.error;
  const json object = json::parse(list.output);
  EXPECT_EQ(object["camera"], "KEOD2001");
  EXPECT_EQ(object["lenses"].size(), 3U);
  EXPECT_FALSE(simulated.whole().heardAnything());
}

TEST(KeocamLens, Set_WritesBothTablesVerifiesAndUsesThem) {
  CameraWithLenses simulated;
  const uint64_t before = simulated.core().ffcCount();
  const Ended set = keocam(simulated.lens({"set", "L13mm"}));
  EXPECT_EQ(set.status, 0) << set.error;
  EXPECT_EQ(set.output, "");
  EXPECT_TRUE(simulated.holds(1));
  EXPECT_TRUE(contains(set.error, "5000 bytes each and are read back, which takes about")) << set.error;
  EXPECT_TRUE(contains(set.error, "Writing the low-range table: 0%")) << set.error;
  EXPECT_TRUE(contains(set.error, "Verifying the middle-range table: 0%")) << set.error;
  EXPECT_TRUE(contains(set.error, "uses the tables of the lens \"L13mm\", written and verified.")) << set.error;
  const std::vector<int> asked = simulated.whole().asked();
  ASSERT_GE(asked.size(), 3U);
  EXPECT_EQ(asked[asked.size() - 3], kReadMemory);
  EXPECT_EQ(asked[asked.size() - 2], kUseSlot);
  EXPECT_EQ(asked.back(), kDoFfc);
  EXPECT_EQ(simulated.core().ffcCount(), before + 1);

  const Ended current = keocam(simulated.lens({"current"}));
  EXPECT_EQ(current.status, 0) << current.error;
  EXPECT_EQ(current.output, "L13mm\n");
}

TEST(KeocamLens, SetWithoutVerification_ReadsNothingBack) {
  CameraWithLenses simulated;
  const Ended set = keocam(simulated.lens({"set", "L07mm", "--no-verify", "-q"}));
  EXPECT_EQ(set.status, 0) << set.error;
  EXPECT_EQ(set.error, "");
  EXPECT_TRUE(simulated.holds(2));
  for (const int function : simulated.whole().asked()) EXPECT_NE(function, kReadMemory);
}

TEST(KeocamLens, Current_IsReadFromBothTables) {
  CameraWithLenses simulated;
  simulated.putIn(2, 2);
  const Ended current = keocam(simulated.lens({"current", "--json"}));
  EXPECT_EQ(current.status, 0) << current.error;
  EXPECT_EQ(json::parse(current.output)["lens"], "L07mm");
  EXPECT_EQ(simulated.whole().asked(), (std::vector<int>{kSlotRegion, kReadMemory, kSlotRegion, kReadMemory}));

  simulated.putIn(0, 2);
  const Ended mixed = keocam(simulated.lens({"current"}));
  EXPECT_EQ(mixed.status, 1);
  EXPECT_EQ(mixed.output, "");
  EXPECT_TRUE(contains(mixed.error, "low range is that of the lens \"L25mm\"")) << mixed.error;
  EXPECT_TRUE(contains(mixed.error, "middle and high range is that of the lens \"L07mm\"")) << mixed.error;
}

TEST(KeocamLens, CurrentOfAnErasedCore_IsStatus1) {
  CameraWithLenses simulated;
  const Ended current = keocam(simulated.lens({"current", "--json"}));
  EXPECT_EQ(current.status, 1);
  EXPECT_EQ(json::parse(current.output)["lens"], nullptr);
  EXPECT_TRUE(contains(current.error, "The core holds the tables of no lens of the calibration.")) << current.error;
}

TEST(KeocamLens, InterruptedSet_TellsHowTheTablesStandAndCanBeRepeated) {
  CameraWithLenses simulated(81920);
  simulated.putIn(0, 0);
  ChildProcess process(keocamWith(simulated.lens({"set", "L13mm", "--no-verify"})));
  ASSERT_TRUE(process.waitFor(ChildProcess::Error, "Writing the low-range table", kPatience));
  process.signal(SIGINT);
  const Ended interrupted = ended(process);
  EXPECT_EQ(interrupted.status, 1) << interrupted.error;
  EXPECT_TRUE(contains(interrupted.error, "is not complete: it was stopped.")) << interrupted.error;
  EXPECT_TRUE(contains(interrupted.error, "The low-range table: only partly erased or written.")) << interrupted.error;
  EXPECT_TRUE(contains(interrupted.error, "The middle-range table: untouched.")) << interrupted.error;
  EXPECT_TRUE(contains(interrupted.error, "Run it again")) << interrupted.error;
  EXPECT_EQ(simulated.core().lensTable(1), simulated.tableOf(0, 1));
  EXPECT_NE(simulated.core().lensTable(0), simulated.tableOf(0, 0));
  EXPECT_NE(simulated.core().lensTable(0), simulated.tableOf(1, 0));

  const Ended again = keocam(simulated.lens({"set", "L13mm", "--no-verify"}));
  EXPECT_EQ(again.status, 0) << again.error;
  EXPECT_TRUE(simulated.holds(1));
}

TEST(KeocamLens, OnATerminal_ABarIsRewritten) {
  CameraWithLenses simulated;
  std::string command = "stty cols 80; exec " KEOCAM_PROGRAM;
  for (const std::string& word : simulated.lens({"set", "L25mm"})) command += ' ' + word;
  ChildProcess process({"env", "TERM=xterm", "script", "-qec", command, "/dev/null"});
  const Ended set = ended(process);
  EXPECT_EQ(set.status, 0) << set.output;
  EXPECT_TRUE(contains(set.output, "\rVerifying the middle-range table [###############] 100% ")) << set.output;
  EXPECT_TRUE(contains(set.output, "\x1b[K\r\nkeocam: The core now holds")) << set.output;
}

}  // namespace
}  // namespace keocam::cli
