// setCalibrationData at its limits: lengths one below, at and above what is read, numbers that do not fit, missing
// keys, and what a fault leaves of the speed class.
#include <algorithm>
#include <stdexcept>

#include "tests/unit/calibration/CalibrationDataFixture.h"

namespace {

using namespace calibration_texts;

// Versions.

TEST_F(CalibrationDataTest, Version_BeyondItsFirst32Bits_IsWhatTheyAre) {
  set(hexFloats(3, 1.0F), "4294967296");  // 0
  ASSERT_EQ(calibrationVect.size(), 1u);
  EXPECT_EQ(lens().bb, 2u);
  EXPECT_EQ(lens().data[0][0][2], 3.0);
  set(heading({}) + "Data:" + hexFloats(3, 4.0F), "4294967297");  // 1
  ASSERT_EQ(calibrationVect.size(), 1u);
  EXPECT_EQ(lens().lens, "L25mm");
  EXPECT_EQ(lens().data[0][0][2], 6.0);
}

TEST_F(CalibrationDataTest, Version_TheLargestOf32Bits_IsNegative) {
  CamSpeed = {true, 2};
  set(record({}), "4294967295");
  EXPECT_TRUE(calibrationVect.empty());
  EXPECT_TRUE(CamSpeed.set) << "nothing is read, so nothing changes";
}

// Without a record nothing is read, and the speed stays.

TEST_F(CalibrationDataTest, WithoutBb_ThereIsNoLens_AndTheSpeedStays) {
  const std::string text = record({}).substr(4);  // without "BB:2"
  for (const char* version : {"1", "2", "3"}) {
    CamSpeed = {true, 2};
    set(text, version, "no serial number");
    EXPECT_TRUE(calibrationVect.empty()) << version;
    EXPECT_TRUE(CamSpeed.set) << version;
    EXPECT_EQ(CamSpeed.speed, 2) << version;
  }
}

TEST_F(CalibrationDataTest, FaultInTheSecondLens_LeavesTheSpeedThatTheFirstGave) {
  EXPECT_THROW(set(record({}) + "BB:x", "3", "KEOE1703"), std::invalid_argument);
  EXPECT_EQ(calibrationVect.size(), 1u);
  EXPECT_TRUE(CamSpeed.set);
  EXPECT_EQ(CamSpeed.speed, 2);
  EXPECT_THROW(set(record({}) + "BB:x", "2", "KEOE1703"), std::invalid_argument);
  EXPECT_EQ(calibrationVect.size(), 1u);
  EXPECT_FALSE(CamSpeed.set);
  EXPECT_EQ(CamSpeed.speed, 2);
}

TEST_F(CalibrationDataTest, FaultInTheFirstLens_LeavesTheSpeedAsItWas) {
  CamSpeed = {true, 0};
  EXPECT_THROW(set("BB:x" + record({}), "3", "KEOE1703"), std::invalid_argument);
  EXPECT_TRUE(CamSpeed.set);
  EXPECT_EQ(CamSpeed.speed, 0);
}

// Points.

TEST_F(CalibrationDataTest, DataMissing_StartsAtIndex4) {
  set("BB:1" + hexFloats(2, 1.0F) + "Cdate:2024-05-06Lens:L25mm", "1");
  ASSERT_EQ(calibrationVect.size(), 1u);
  EXPECT_EQ(lens().data[0][0][0], 1.0);
  EXPECT_EQ(lens().data[0][0][1], 2.0);
}

TEST_F(CalibrationDataTest, Data_IsCutBehindItsSixHundredthFloat) {
  const std::string tables = "SffcLowRange:)SffcHighRange:)";
  for (const std::size_t floats : {599U, 600U, 601U}) {
    for (const char* version : {"2", "3"}) {
      set(heading({}) + "Data:" + hexFloats(floats, 1.0F) + tables, version);
      EXPECT_EQ(lens().data[0][0][0], 1.0) << version;
      EXPECT_EQ(lens().data[1][0][0], 301.0) << version << ": not begun again by a 601st";
      EXPECT_EQ(lens().data[1][59][3], 599.0) << version;
      EXPECT_EQ(lens().data[1][59][4] == 600.0, floats >= 600) << version;
      EXPECT_EQ(lens().data[2][0][0], 0.0) << version << ": nor does the third range get it";
    }
  }
}

TEST_F(CalibrationDataTest, Data1500_IsCutBehindItsThreeHundredthFloat) {
  for (const std::size_t floats : {300U, 301U}) {
    set(heading({}) + "Data:" + hexFloats(600, 1.0F) + "Data1500:" + hexFloats(floats, 601.0F) +
            "SffcLowRange:)SffcHighRange:)Sffc1500Range:)",
        "3");
    EXPECT_EQ(lens().data[2][0][0], 601.0) << "not begun again by a 301st";
    EXPECT_EQ(lens().data[2][59][4], 900.0);
  }
}

// Tables.

TEST_F(CalibrationDataTest, Sffc1500RangeMissing_StartsAtIndex13BehindTheKeyBefore) {
  // "Sffc1500Range:" has 14 characters. Index 13 of "00112233445566778899AABB)..." is the second digit of "66", and
  // from there the pairs are 67 78 89 9A AB, and a single B.
  set(heading({}) + "Data:0000803FData1500:00000040SffcLowRange:0102)SffcHighRange:00112233445566778899AABB)" +
          record({"L50mm"}),
      "3");
  ASSERT_EQ(calibrationVect.size(), 2u) << "the text is cut there, so that the next lens is found";
  EXPECT_EQ(lens(0).has1500Range, 1);
  EXPECT_EQ(lens(0).sffcHighRange[11], 0xBB);
  EXPECT_EQ(std::vector<uint8_t>(lens(0).sffc1500Range, lens(0).sffc1500Range + 6),
            (std::vector<uint8_t>{0x67, 0x78, 0x89, 0x9A, 0xAB, 0x00}));
  EXPECT_EQ(lens(1).lens, "L50mm");
}

TEST_F(CalibrationDataTest, ShortTables_OneCharacterIsNoByte) {
  struct Table {
    const char* text;
    uint8_t first;
  };
  for (const Table& table : {Table{"", 0x00}, Table{"5", 0x00}, Table{"5A", 0x5A}}) {
    std::string text = heading({}) + "Data:Data1500:";
    for (const char* key : {"SffcLowRange:", "SffcHighRange:", "Sffc1500Range:"}) {
      text.append(key).append(table.text).append(")");
    }
    set(text, "3");
    EXPECT_EQ(lens().sffcTableSize, table.first == 0 ? 0 : 1) << table.text;
    for (const uint8_t* const bytes : {lens().sffcLowRange, lens().sffcHighRange, lens().sffc1500Range}) {
      EXPECT_EQ(bytes[0], table.first) << table.text;
      EXPECT_EQ(bytes[1], 0x00) << table.text;
    }
  }
}

TEST_F(CalibrationDataTest, Table_WithASingleCharacterAboveItsPlace_Fits) {
  const std::vector<uint8_t> full = bytes(kSffcCapacity_bytes, 5);
  const std::string table = hexBytes(full) + "9)";
  ASSERT_EQ(table.size() - 1, 2'621'441u);
  set(heading({}) + "Data:Data1500:SffcLowRange:" + table + "SffcHighRange:" + table + "Sffc1500Range:" + table, "3");
  ASSERT_EQ(calibrationVect.size(), 1u);
  EXPECT_EQ(lens().sffcTableSize, 1'310'720);
  for (const uint8_t* const held : {lens().sffcLowRange, lens().sffcHighRange, lens().sffc1500Range}) {
    EXPECT_TRUE(std::equal(full.begin(), full.end(), held));
  }
  EXPECT_THROW(set(heading({}) + "Data:SffcLowRange:" + hexBytes(full) + "99)SffcHighRange:)", "3"), std::length_error);
}

}  // namespace
