// Lenses by name, in lists, in a core, and what is said of a change.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/lens/LensChangeText.h"
#include "apps/keocam/lens/LensName.h"
#include "apps/keocam/lens/LensReport.h"

namespace keocam::cli {
namespace {

using nlohmann::json;

LensSummary lens(const std::string& name, bool with_1500 = false) {
  LensSummary summary;
  summary.name = name;
  summary.date = "2026-03-02";
  summary.has_1500_range = with_1500;
  summary.low.size_bytes = 1310720;
  return summary;
}

std::vector<LensSummary> threeLenses() { return {lens("L25mm", true), lens("L9mm "), lens("L9mm")}; }

std::string refusal(const std::string& name) {
  try {
    lensNamed(name, threeLenses());
  } catch (const CommandFailure& failure) {
    EXPECT_EQ(failure.status(), ExitStatus::Failure);
    return failure.what();
  }
  ADD_FAILURE() << name << " was found";
  return "";
}

TEST(LensName, ExactName_IsPreferredToOneWithBlanks) {
  EXPECT_EQ(lensNamed("L25mm", threeLenses()), 0U);
  EXPECT_EQ(lensNamed("L9mm", threeLenses()), 2U);
  EXPECT_EQ(lensNamed("L9mm ", threeLenses()), 1U);
  EXPECT_EQ(lensNamed("L9mm", {lens("L9mm ")}), 0U);
}

TEST(LensName, UnknownName_IsToldTheNearOneAndAll) {
  EXPECT_EQ(refusal("L26mm"),
            "The calibration has no lens \"L26mm\"; did you mean \"L25mm\"? It has: L25mm, L9mm, L9mm.");
  EXPECT_NE(refusal("25").find("did you mean \"L25mm\"?"), std::string::npos);
  EXPECT_NE(refusal("L25").find("did you mean \"L25mm\"?"), std::string::npos);
  EXPECT_EQ(refusal("\x1b").find('\x1b'), std::string::npos);
  EXPECT_NE(refusal("").find("no lens \"\"."), std::string::npos);
}

TEST(LensReport, Table_IsALinePerLens) {
  EXPECT_EQ(lensTable(threeLenses(), 80),
            "LENS   DATE        RANGES             TABLE BYTES  SENSOR\n"
            "L25mm  2026-03-02  low, middle, high  1310720      640x512\n"
            "L9mm   2026-03-02  low, middle        1310720      640x512\n"
            "L9mm   2026-03-02  low, middle        1310720      640x512\n");
}

TEST(LensReport, StrangeSizes_HaveNoSensor) {
  LensSummary none = lens("none");
  none.low.size_bytes = 0;
  LensSummary odd = lens("odd");
  odd.low.size_bytes = 5;
  const std::string table = lensTable({none, odd}, 80);
  EXPECT_NE(table.find(" 0            -\n"), std::string::npos) << table;
  EXPECT_NE(table.find(" 5            ?\n"), std::string::npos) << table;
}

TEST(LensReport, Json_KeepsNamesAsTheyAre) {
  CameraCalibration calibration;
  calibration.entry.serial_number = "KEOD2001";
  calibration.lenses = threeLenses();
  const json object = json::parse(lensJson(calibration));
  EXPECT_EQ(object["camera"], "KEOD2001");
  EXPECT_EQ(object["lenses"][1]["name"], "L9mm ");
  EXPECT_EQ(object["lenses"][0]["ranges"], (json{"low", "middle", "high"}));
}

// Two lenses of 4096 bytes, and samples of what a core would hold.
std::vector<CalibrationStruct> twoLenses() {
  std::vector<CalibrationStruct> lenses(2);
  for (std::size_t i = 0; i < 2; ++i) {
    lenses[i].sffcTableSize = 4096;
    std::fill_n(lenses[i].sffcLowRange, 4096, static_cast<uint8_t>(1 + i));
    std::fill_n(lenses[i].sffcHighRange, 4096, static_cast<uint8_t>(11 + i));
  }
  return lenses;
}

HeldTable tableOf(uint8_t byte, uint32_t size_bytes = 4096) {
  HeldTable table;
  table.size_bytes = size_bytes;
  for (auto& sample : table.samples) sample.fill(byte);
  return table;
}

TEST(HeldLens, BothTables_DecideTheLens) {
  EXPECT_EQ(heldLens({tableOf(1), tableOf(11)}, twoLenses()).lens, 0U);
  EXPECT_EQ(heldLens({tableOf(2), tableOf(12)}, twoLenses()).lens, 1U);
  const HeldLens mixed = heldLens({tableOf(2), tableOf(11)}, twoLenses());
  EXPECT_FALSE(mixed.lens);
  EXPECT_EQ(mixed.low, 1U);
  EXPECT_EQ(mixed.middle, 0U);
}

TEST(HeldLens, OneByteOfOneSample_Decides) {
  for (uint32_t sample = 0; sample < HeldTable::kSamples; ++sample) {
    HeldTables held{tableOf(1), tableOf(11)};
    held.middle.samples[sample][127] = 0;
    EXPECT_FALSE(heldLens(held, twoLenses()).lens) << sample;
  }
}

TEST(HeldLens, TablesOfAnotherSize_AreNobodys) {
  EXPECT_FALSE(heldLens({tableOf(1, 4000), tableOf(11, 4000)}, twoLenses()).lens);
  std::vector<CalibrationStruct> empty(1);
  EXPECT_FALSE(heldLens({tableOf(0, 0), tableOf(0, 0)}, empty).lens);
}

TEST(HeldLens, SmallTable_IsComparedToItsEnd) {
  std::vector<CalibrationStruct> lenses = twoLenses();
  for (CalibrationStruct& one : lenses) one.sffcTableSize = 200;
  HeldTables held{tableOf(1, 200), tableOf(11, 200)};
  held.low.samples[3].fill(0);
  std::fill_n(held.low.samples[3].begin(), 50, uint8_t{1});
  EXPECT_EQ(heldLens(held, lenses).lens, 0U);
}

TEST(HeldLens, NoLens_IsSaidOfEachTable) {
  const std::vector<LensSummary> lenses = {lens("A"), lens("B")};
  const HeldTables held{tableOf(2), tableOf(0xFF)};
  const std::string text = noHeldLensText(held, heldLens(held, twoLenses()), lenses);
  EXPECT_NE(text.find("low range is that of the lens \"B\""), std::string::npos) << text;
  EXPECT_NE(text.find("middle and high range is erased"), std::string::npos) << text;
  const json object = json::parse(heldLensJson("KEOD2001", heldLens(held, twoLenses()), lenses));
  EXPECT_EQ(object["lens"], nullptr);
  EXPECT_EQ(object["low_table_of"], "B");
  EXPECT_EQ(object["middle_table_of"], nullptr);
}

TEST(LensChangeText, Beginning_TellsSizeAndDuration) {
  EXPECT_EQ(beginText("KEOD2001 at 127.0.0.2", "L25mm", 1310720, Verification::ReadBack),
            "Writing the two tables of the lens \"L25mm\" into the core of KEOD2001 at 127.0.0.2.\n"
            "They have 1310720 bytes each and are read back, which takes about 20 minutes.\n"
            "Keep the camera powered and connected. Ctrl-C stops.");
}

LensChange changeThat(LensChangeEnd end, TableState low, TableState high, const std::string& failure = {}) {
  LensChange change;
  change.end = end;
  change.low = low;
  change.high = high;
  change.failure = failure;
  return change;
}

TEST(LensChangeText, Completion_SaysWhetherItWasVerified) {
  const auto text = [](TableState state) {
    return completeText("A", changeThat(LensChangeEnd::Complete, state, state));
  };
  EXPECT_NE(text(TableState::Verified).find("written and verified."), std::string::npos);
  EXPECT_NE(text(TableState::Written).find("not verified."), std::string::npos);
  EXPECT_NE(text(TableState::Untouched).find("has no tables"), std::string::npos);
}

TEST(LensChangeText, Stop_TellsBothTablesAndWhatToDo) {
  EXPECT_EQ(incompleteText("A", changeThat(LensChangeEnd::Cancelled, TableState::Verified, TableState::PartlyWritten)),
            "The change to the lens \"A\" is not complete: it was stopped.\n"
            "The low-range table: written and verified.\n"
            "The middle-range table: only partly erased or written.\n"
            "The core cannot correct with these tables. Run it again; each table is erased and written anew.");
}

TEST(LensChangeText, Failure_IsQuotedAndEachOutcomeHasItsAdvice) {
  const std::string untouched = incompleteText(
      "A", changeThat(LensChangeEnd::Failed, TableState::Untouched, TableState::Untouched, "Sizes differ."));
  EXPECT_NE(untouched.find("Sizes differ.\n"), std::string::npos) << untouched;
  EXPECT_NE(untouched.find("Nothing has changed in the core."), std::string::npos) << untouched;
  const std::string unused =
      incompleteText("A", changeThat(LensChangeEnd::Failed, TableState::Verified, TableState::Written, "No."));
  EXPECT_NE(unused.find("may not use the tables yet"), std::string::npos) << unused;
  for (const TableState state : {TableState::Differs, TableState::NotVerified, TableState::PartlyWritten}) {
    const std::string text =
        incompleteText("A", changeThat(LensChangeEnd::Failed, state, TableState::Untouched, "No."));
    EXPECT_NE(text.find("Run it again"), std::string::npos) << text;
  }
}

}  // namespace
}  // namespace keocam::cli
