// setCalibrationData: what all versions share, and versions 0 to 2, with every leniency, early end and exception.
#include <algorithm>
#include <stdexcept>

#include "calibration/HexText.h"
#include "tests/unit/calibration/CalibrationDataFixture.h"

namespace {

using namespace calibration_texts;

TEST_F(CalibrationDataTest, EmptyText_LeavesNoLens_WhateverTheVersion) {
  set(record({}), "03");
  currentLensNumber = 7;
  set("", "no number", "x");
  EXPECT_TRUE(calibrationVect.empty());
  EXPECT_EQ(currentLensNumber, 0);
}

TEST_F(CalibrationDataTest, EveryCall_ReplacesTheLenses_AndSelectsTheFirst) {
  set(record({}) + record({"L50mm"}), "03");
  EXPECT_EQ(calibrationVect.size(), 2u);
  currentLensNumber = 1;
  set(record({"L75mm"}), "03");
  ASSERT_EQ(calibrationVect.size(), 1u);
  EXPECT_EQ(lens().lens, "L75mm");
  EXPECT_EQ(currentLensNumber, 0);
  EXPECT_EQ(takeAll(), Log{}) << "nothing is sent or said";
}

TEST_F(CalibrationDataTest, Version_MustBeANumber) {
  EXPECT_EQ(messageOf<std::invalid_argument>([this] { set("x", "none"); }), "stoul");
  EXPECT_EQ(messageOf<std::invalid_argument>([this] { set("x", ""); }), "stoul");
  EXPECT_EQ(messageOf<std::out_of_range>([this] { set("x", "99999999999999999999"); }), "stoul");
}

TEST_F(CalibrationDataTest, Version_NegativeAsA32BitNumber_GivesNoLens) {
  for (const char* version : {"-1", "2147483648", "4294967295"}) {
    set(record({}), version);
    EXPECT_TRUE(calibrationVect.empty()) << version;
  }
}

TEST_F(CalibrationDataTest, Version_AboveThree_IsReadAsThree) {
  for (const char* version : {"3", "03", " 3", "4", "99", "2147483647", "3 and more"}) {
    set(record({}), version);
    ASSERT_EQ(calibrationVect.size(), 1u) << version;
    EXPECT_EQ(lens().slopesValid, 1) << version;
  }
}

// Version 0.

TEST_F(CalibrationDataTest, Version0_TheTextIsFloats) {
  CamSpeed = {true, 2};
  set(hexFloats(300), "00");
  ASSERT_EQ(calibrationVect.size(), 1u);
  EXPECT_EQ(lens().bb, 2u);
  EXPECT_EQ(lens().cdate, "");
  EXPECT_EQ(lens().lens, "");
  EXPECT_EQ(lens().slopesValid, 0);
  EXPECT_EQ(lens().has1500Range, 0);
  EXPECT_EQ(lens().sffcTableSize, 0);
  EXPECT_EQ(lens().data[0][0][0], 0.0);
  EXPECT_EQ(lens().data[0][0][4], 4.0);
  EXPECT_EQ(lens().data[0][1][0], 5.0);
  EXPECT_EQ(lens().data[0][59][4], 299.0);
  EXPECT_EQ(lens().data[1][0][0], 0.0);
  EXPECT_FALSE(CamSpeed.set);
  EXPECT_EQ(CamSpeed.speed, 2) << "the speed stays";
}

TEST_F(CalibrationDataTest, Version0_TheSecondRangeFollows_AndHasNoEnd) {
  set(hexFloats(602, 1.0F), "00");
  EXPECT_EQ(lens().data[0][0][0], 1.0);
  EXPECT_EQ(lens().data[1][0][0], 601.0) << "values beyond the second range begin it again";
  EXPECT_EQ(lens().data[1][0][1], 602.0);
  EXPECT_EQ(lens().data[1][0][2], 303.0);
  EXPECT_EQ(lens().data[1][59][4], 600.0);
  EXPECT_EQ(lens().data[2][0][0], 0.0);
}

TEST_F(CalibrationDataTest, Version0_AnIncompleteFloat_IsLeft) {
  set(hexFloats(1, 5.0F) + "0000803", "00");
  EXPECT_EQ(lens().data[0][0][0], 5.0);
  EXPECT_EQ(lens().data[0][0][1], 0.0);
}

TEST_F(CalibrationDataTest, Version0_NoHexadecimal_IsZeros) {
  set("zzzzzzzz" + hexFloat(2.0F), "00");
  EXPECT_EQ(lens().data[0][0][0], 0.0);
  EXPECT_EQ(lens().data[0][0][1], 2.0);
}

// Version 1.

TEST_F(CalibrationDataTest, Version1_EachLens) {
  CamSpeed = {true, 0};
  set(heading({}) + "Data:" + hexFloats(600, 1.0F) + heading({"L50mm", "2025-01-02", '7'}) +
          "Data:" + hexFloats(3, 9.0F),
      "01", "no matter");
  ASSERT_EQ(calibrationVect.size(), 2u);
  EXPECT_EQ(lens(0).bb, 2u);
  EXPECT_EQ(lens(0).cdate, "2024-05-06");
  EXPECT_EQ(lens(0).lens, "L25mm");
  EXPECT_EQ(lens(0).data[0][0][0], 1.0);
  EXPECT_EQ(lens(0).data[1][59][4], 600.0);
  EXPECT_EQ(lens(0).data[2][0][0], 0.0);
  EXPECT_EQ(lens(0).slopesValid, 0);
  EXPECT_EQ(lens(1).bb, 7u);
  EXPECT_EQ(lens(1).cdate, "2025-01-02");
  EXPECT_EQ(lens(1).lens, "L50mm");
  EXPECT_EQ(lens(1).data[0][0][2], 11.0);
  EXPECT_EQ(lens(1).data[0][0][3], 0.0) << "nothing of the lens before is left";
  EXPECT_FALSE(CamSpeed.set);
}

TEST_F(CalibrationDataTest, Version1_MoreThan600Floats_AreLeft) {
  set(heading({}) + "Data:" + hexFloats(601, 1.0F), "01");
  EXPECT_EQ(lens().data[0][0][0], 1.0);
  EXPECT_EQ(lens().data[1][0][0], 301.0);
}

TEST_F(CalibrationDataTest, Version1_WithoutBb_GivesNoLens) {
  set("Cdate:2024-05-06Lens:L25mmData:" + hexFloats(600), "01");
  EXPECT_TRUE(calibrationVect.empty());
}

TEST_F(CalibrationDataTest, Version1_ShortDateAndLens_AreCutByTheEnd) {
  set("Data:0000803FBB:1Lens:ABCDE9Cdate:24", "01");
  EXPECT_EQ(lens().cdate, "24");
  EXPECT_EQ(lens().lens, "ABCDE");
  EXPECT_EQ(lens().data[0][0][0], 1.0);
}

TEST_F(CalibrationDataTest, Version1_DataBeforeBb_TheRecordIsReadUntilItsBbIsCutOff) {
  // Each record cuts the text: the first behind "Data:" (30 characters are left), the others, whose "Data:" is missing,
  // at index 4 (26, 22 and 18 characters). The "BB:" stands at 13, 8, 4 and 0; the rest "Lens:..." has none.
  set("Data:0000803FBB:1Lens:ABCDECdate:24", "01");
  ASSERT_EQ(calibrationVect.size(), 4u);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(lens(i).bb, 1u) << i;
    EXPECT_EQ(lens(i).lens, "ABCDE") << i;
    EXPECT_EQ(lens(i).cdate, "24") << i;
  }
  EXPECT_EQ(lens(0).data[0][0][0], 1.0);
  // "803FBB:1" is the bytes 80 3F BB 00, and "Lens:ABC" 00 00 00 BC: 0xBC000000.
  EXPECT_EQ(lens(1).data[0][0][0], keocam::decodeHexFloat("803FBB00"));
  EXPECT_EQ(lens(3).data[0][0][0], -0.0078125);
}

TEST_F(CalibrationDataTest, MissingKey_ValueStartsOneLessThanTheKeysLengthIntoTheText) {
  set("0123456789BB:4abcdefghij", "01");
  ASSERT_GE(calibrationVect.size(), 1u);
  EXPECT_EQ(lens().bb, 4u);
  EXPECT_EQ(lens().cdate, "56789BB:4a") << "from index 5";
  EXPECT_EQ(lens().lens, "456789BB:"[0] + std::string("5678")) << "from index 4";
}

TEST_F(CalibrationDataTest, Bb_MustBeADigit) {
  EXPECT_EQ(messageOf<std::invalid_argument>([this] { set("BB:xCdate:24Lens:LData:", "01"); }), "stoul");
  EXPECT_EQ(messageOf<std::invalid_argument>([this] { set("Cdate:24Lens:LData:BB:", "01"); }), "stoul");
}

TEST_F(CalibrationDataTest, ValueBeyondTheEnd_Throws) {
  EXPECT_NE(messageOf<std::out_of_range>([this] { set("BB:1", "01"); }), "no exception") << "\"Cdate:\" from index 5";
  EXPECT_TRUE(calibrationVect.empty());
}

TEST_F(CalibrationDataTest, LensesBeforeAFault_StayInForce) {
  EXPECT_EQ(messageOf<std::invalid_argument>([this] { set(record({}) + "BB:x" + record({}), "03"); }), "stoul");
  ASSERT_EQ(calibrationVect.size(), 1u);
  EXPECT_EQ(lens().lens, "L25mm");
  EXPECT_EQ(lens().sffcTableSize, 300);
}

// Version 2.

TEST_F(CalibrationDataTest, Version2_Tables) {
  CamSpeed = {true, 0};
  set(record({}) + record({"L50mm", "2025-01-02", '7', 5.0F, bytes(128, 9), bytes(127, 8)}), "02", "x");
  ASSERT_EQ(calibrationVect.size(), 2u);
  EXPECT_EQ(lens(0).sffcTableSize, 300);
  EXPECT_TRUE(std::equal(lens(0).sffcLowRange, lens(0).sffcLowRange + 300, bytes(300, 1).begin()));
  EXPECT_TRUE(std::equal(lens(0).sffcHighRange, lens(0).sffcHighRange + 300, bytes(300, 2).begin()));
  EXPECT_EQ(lens(0).sffcLowRange[300], 0);
  EXPECT_EQ(lens(0).slopesValid, 0) << "slopes begin with version 3";
  EXPECT_EQ(lens(1).sffcTableSize, 128) << "the low table's size serves for both";
  EXPECT_EQ(lens(1).sffcHighRange[126], bytes(127, 8)[126]);
  EXPECT_EQ(lens(1).sffcHighRange[127], 0);
  EXPECT_EQ(lens(1).data[0][0][0], 5.0);
  EXPECT_FALSE(CamSpeed.set);
}

TEST_F(CalibrationDataTest, Version2_Ignores1500) {
  Lens wide;
  wide.has_1500 = true;
  set(record(wide), "02");
  EXPECT_EQ(lens().has1500Range, 0);
  EXPECT_EQ(lens().data[2][0][0], 0.0);
  EXPECT_EQ(lens().sffc1500Range[0], 0);
}

TEST_F(CalibrationDataTest, Table_WithoutClosingParenthesis_RunsToTheEnd) {
  set(heading({}) + "Data:SffcLowRange:0102)SffcHighRange:0304", "02");
  EXPECT_EQ(lens().sffcTableSize, 2);
  EXPECT_EQ(lens().sffcHighRange[0], 3);
  EXPECT_EQ(lens().sffcHighRange[1], 4);
}

TEST_F(CalibrationDataTest, Table_OpeningBracketIsNotSkipped) {
  set(heading({}) + "Data:SffcLowRange:(0102)SffcHighRange:)", "02");
  EXPECT_EQ(lens().sffcTableSize, 2) << "five characters are two pairs: \"(0\" and \"10\"";
  EXPECT_EQ(lens().sffcLowRange[0], 0x00);
  EXPECT_EQ(lens().sffcLowRange[1], 0x10);
}

TEST_F(CalibrationDataTest, Table_OddLength_LastCharacterCountsForNothing) {
  set(heading({}) + "Data:SffcLowRange:01023)SffcHighRange:5)", "02");
  EXPECT_EQ(lens().sffcTableSize, 2);
  EXPECT_EQ(lens().sffcLowRange[2], 0);
  EXPECT_EQ(lens().sffcHighRange[0], 0) << "one character is no byte";
}

TEST_F(CalibrationDataTest, Tables_Empty) {
  set(heading({}) + "Data:SffcLowRange:)SffcHighRange:)", "02");
  EXPECT_EQ(lens().sffcTableSize, 0);
}

TEST_F(CalibrationDataTest, Tables_Missing_AreReadFromWhereTheyWouldBeCut) {
  // "SffcLowRange:" has 13 characters, so that its table begins at index 12 of the text: "24-05-06Lens:..." up to the
  // parenthesis, 37 characters. "SffcHighRange:" has 14: its table begins at index 13 of that, "L25mmData:...", 24.
  set("BB:1Cdate:2024-05-06Lens:L25mmData:0000803F000102)", "02");
  ASSERT_EQ(calibrationVect.size(), 1u);
  EXPECT_EQ(lens().sffcTableSize, 18);
  // "24" "-0" "5-" "06" "Le" "ns" ":L" "25" "mm" "Da" "ta" ":0" "00" "08" "03" "F0" "00" "10", and a single "2".
  EXPECT_EQ(std::vector<uint8_t>(lens().sffcLowRange, lens().sffcLowRange + 19),
            (std::vector<uint8_t>{0x24, 0, 5, 6, 0, 0, 0, 0x25, 0, 0xDA, 0, 0, 0, 8, 3, 0xF0, 0, 0x10, 0}));
  // "L2" "5m" "mD" "at" "a:" "00" "00" "80" "3F" "00" "01" "02".
  EXPECT_EQ(std::vector<uint8_t>(lens().sffcHighRange, lens().sffcHighRange + 13),
            (std::vector<uint8_t>{0, 5, 0, 0x0A, 0x0A, 0, 0, 0x80, 0x3F, 0, 1, 2, 0}));
}

TEST_F(CalibrationDataTest, Table_AsLargeAsItsPlace_Fits) {
  Lens full;
  full.low = bytes(kSffcCapacity_bytes, 5);
  full.high = bytes(kSffcCapacity_bytes, 6);
  full.has_1500 = true;
  full.high_1500 = bytes(kSffcCapacity_bytes, 7);
  set(record(full), "03");
  EXPECT_EQ(lens().sffcTableSize, 1'310'720);
  EXPECT_TRUE(std::equal(full.low.begin(), full.low.end(), lens().sffcLowRange));
  EXPECT_TRUE(std::equal(full.high.begin(), full.high.end(), lens().sffcHighRange));
  EXPECT_TRUE(std::equal(full.high_1500.begin(), full.high_1500.end(), lens().sffc1500Range));
}

TEST_F(CalibrationDataTest, Table_LargerThanItsPlace_IsRefusedByName) {
  for (const int table : {0, 1, 2}) {
    Lens first{"first"};
    Lens large;
    first.has_1500 = large.has_1500 = true;
    std::vector<uint8_t>* const tables[] = {&large.low, &large.high, &large.high_1500};
    tables[table]->assign(kSffcCapacity_bytes + 1, 0x11);
    const std::string names[] = {"SffcLowRange", "SffcHighRange", "Sffc1500Range"};
    EXPECT_THAT(messageOf<std::length_error>([&] { set(record(first) + record(large), "03"); }),
                testing::HasSubstr(names[table]));
    ASSERT_EQ(calibrationVect.size(), 1u) << "the lens before it stays";
    EXPECT_EQ(lens().lens, "first");
  }
}

}  // namespace
