// setCalibrationData: every grammar, with every leniency, early end and exception.
#include <pthread.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <stdexcept>

#include "calibration/Calibration.h"
#include "calibration/CalibrationText.h"
#include "serial/CameraSerialSettings.h"
#include "tests/unit/ScriptedTest.h"
#include "tests/unit/calibration/CalibrationTexts.h"

namespace {

using namespace calibration_texts;

class CalibrationDataTest : public ScriptedTest {
 protected:
  CalibrationDataTest() { CamSpeed = {false, 1}; }
  ~CalibrationDataTest() override {
    calibrationVect.clear();
    currentLensNumber = 0;
    CamSpeed = {false, 1};
  }

  void set(const std::string& text, const std::string& version, const std::string& serial = "KEOD2001") {
    core_.setCalibrationData(text, version, serial);
  }

  static const CalibrationStruct& lens(std::size_t index = 0) { return calibrationVect.at(index); }

  template <typename Exception>
  static std::string messageOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const Exception& exception) {
      return exception.what();
    }
    return "no exception";
  }

  CameraSerialSettings core_{nullptr, PvDeviceSerialBulk0};
};

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

TEST_F(CalibrationDataTest, Version1_DataBeforeBb_RecordComesTwice) {
  set("Data:0000803FBB:1Lens:ABCDECdate:24", "01");
  // The text is cut behind "Data:", so that the same "BB:" opens a second record, whose "Data:" is missing.
  EXPECT_GE(calibrationVect.size(), 2u);
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
  // "SffcLowRange:" is missing, so the table starts at index 12; "SffcHighRange:" in that rest, at 13.
  set("BB:1Cdate:2024-05-06Lens:L25mmData:0000803F000102)", "02");
  ASSERT_EQ(calibrationVect.size(), 1u);
  EXPECT_GT(lens().sffcTableSize, 0);
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

// Version 3.

TEST_F(CalibrationDataTest, Version3_Without1500) {
  set(record({}), "03");
  EXPECT_EQ(lens().has1500Range, 0);
  EXPECT_EQ(lens().data[1][59][4], 600.0);
  EXPECT_EQ(lens().data[2][0][0], 0.0);
  EXPECT_EQ(lens().sffc1500Range[0], 0);
}

TEST_F(CalibrationDataTest, Version3_With1500) {
  Lens wide;
  wide.has_1500 = true;
  set(record(wide), "03");
  EXPECT_EQ(lens().has1500Range, 1);
  EXPECT_EQ(lens().data[1][59][4], 600.0);
  EXPECT_EQ(lens().data[2][0][0], 601.0);
  EXPECT_EQ(lens().data[2][59][4], 900.0);
  EXPECT_TRUE(std::equal(lens().sffc1500Range, lens().sffc1500Range + 300, bytes(300, 3).begin()));
}

TEST_F(CalibrationDataTest, Version3_ShortData_TakesTheFirstPlacesOf1500) {
  set(heading({}) + "Data:" + hexFloats(2, 1.0F) + "0000Data1500:A041" + hexFloats(1, 5.0F) +
          "SffcLowRange:)SffcHighRange:)Sffc1500Range:)",
      "03");
  // The data's 4800 characters run on over the key and the tables; what they end in decides where the rest falls.
  EXPECT_EQ(lens().has1500Range, 1);
  EXPECT_EQ(lens().data[0][0][0], 1.0);
  EXPECT_EQ(lens().data[0][0][1], 2.0);
}

TEST_F(CalibrationDataTest, Version3_ALaterLens1500_IsTakenForThisOnes) {
  Lens wide{"L50mm"};
  wide.has_1500 = true;
  set(record({}) + record(wide), "03");
  // The key is searched for in all that follows, and the text is cut behind the later lens' table.
  ASSERT_EQ(calibrationVect.size(), 1u);
  EXPECT_EQ(lens().lens, "L25mm");
  EXPECT_EQ(lens().has1500Range, 1);
  EXPECT_EQ(lens().data[2][0][0], 601.0);
}

TEST_F(CalibrationDataTest, Version3_Slopes) {
  set(record({}), "03");
  EXPECT_EQ(lens().slopesValid, 1);
  for (int range = 0; range < 2; ++range) {
    for (int row = 0; row < 60; ++row) {
      const double* const points = lens().data[range][row];
      EXPECT_EQ(lens().slopes[range][row], (points[4] - points[1]) / (points[0] - points[3]));
    }
  }
}

TEST_F(CalibrationDataTest, Version3_FirstRowsFourthPointZero_HasNoSlopes) {
  set(heading({}) + "Data:" + hexFloats(3, 1.0F) + "00000000" + hexFloats(596, 4.0F) + "SffcLowRange:)SffcHighRange:)",
      "03");
  EXPECT_EQ(lens().slopesValid, 0);
  EXPECT_EQ(lens().slopes[0][0], 0.0);
  EXPECT_EQ(lens().slopes[1][59], 0.0);
}

TEST_F(CalibrationDataTest, Version3_SlopeOfNothing_IsAsIeeeHasIt) {
  std::string points;
  for (const float value : {1.0F, 2.0F, 3.0F, 1.0F, 5.0F}) points += hexFloat(value);  // 3 / 0
  for (const float value : {1.0F, 2.0F, 3.0F, 1.0F, 2.0F}) points += hexFloat(value);  // 0 / 0
  set(heading({}) + "Data:" + points + hexFloats(590) + "SffcLowRange:)SffcHighRange:)", "03");
  EXPECT_TRUE(std::isinf(lens().slopes[0][0]));
  EXPECT_TRUE(std::isnan(lens().slopes[0][1]));
}

// Speed.

struct Speed {
  const char* serial;
  bool set;
  int32_t speed;
};

TEST_F(CalibrationDataTest, Version3_SpeedFollowsTheSerialNumber) {
  const Speed speeds[] = {
      {"KEOD1702", false, 5}, {"KEOE1703", true, 2},     {"KEOC1703", true, 0},       {"KEOD1703", true, 1},
      {"KEOX1703", true, 1},  {"KEOE0000", false, 5},    {"KEOE-5", false, 5},        {"KEOE1703abc", true, 2},
      {"KEOE 1703", true, 2}, {"KEOE00017039", true, 2}, {"KEOE000017039", false, 5}, {"KEOE99999999", true, 2},
  };
  for (const Speed& speed : speeds) {
    CamSpeed = {true, 5};
    set(record({}), "03", speed.serial);
    EXPECT_EQ(CamSpeed.set, speed.set) << speed.serial;
    EXPECT_EQ(CamSpeed.speed, speed.speed) << speed.serial << ": without the flag the speed stays";
  }
}

TEST_F(CalibrationDataTest, Version3_BadSerialNumber_Throws) {
  EXPECT_NE(messageOf<std::out_of_range>([this] { set(record({}), "03", "KEO"); }), "no exception");
  EXPECT_EQ(messageOf<std::invalid_argument>([this] { set(record({}), "03", "KEOD"); }), "stoi");
  EXPECT_EQ(messageOf<std::invalid_argument>([this] { set(record({}), "03", "KEODx1"); }), "stoi");
  EXPECT_TRUE(calibrationVect.empty());
}

TEST_F(CalibrationDataTest, Versions0To2_LookAtNoSerialNumber) {
  set(hexFloats(1), "0", "x");
  set(heading({}) + "Data:", "1", "x");
  set(record({}), "2", "x");
  EXPECT_EQ(calibrationVect.size(), 1u);
}

// Memory.

TEST_F(CalibrationDataTest, SmallStack_IsEnough) {
  const std::string text = record({}) + record({"L50mm"});
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, std::size_t{256} * 1024);
  std::function<void()> work = [&] { set(text, "03"); };
  pthread_t thread;
  ASSERT_EQ(pthread_create(
                &thread, &attributes,
                [](void* argument) -> void* {
                  (*static_cast<std::function<void()>*>(argument))();
                  return nullptr;
                },
                &work),
            0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
  EXPECT_EQ(calibrationVect.size(), 2u);
}

TEST_F(CalibrationDataTest, Records_AreHeldOnce) {
  std::string text;
  for (int i = 0; i < 5; ++i) text += record({"L" + std::to_string(i) + "xmm"});
  set(text, "03");
  ASSERT_EQ(calibrationVect.size(), 5u);
  EXPECT_EQ(calibrationVect.capacity(), 5u);
}

TEST_F(CalibrationDataTest, NothingButMissingKeys_TakesNoLongerThanItsLength) {
  // Each "BB:" would search the rest of the text for keys that are not there: 10^11 steps and more if it did.
  std::string text;
  for (int i = 0; i < 400'000; ++i) text += "BB:1";
  const auto layout = keocam::readCalibrationLayout(text, 2, "KEOD2001", {});
  EXPECT_GT(layout.records.size(), 50'000u);
}

}  // namespace
