// setCalibrationData: version 3 and above, the speed class, and memory.
#include <pthread.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <stdexcept>

#include "calibration/CalibrationText.h"
#include "tests/unit/calibration/CalibrationDataFixture.h"

namespace {

using namespace calibration_texts;

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

TEST_F(CalibrationDataTest, Version3_ShortData_IsContinuedByData1500_EvenWithinAFloat) {
  // "Data:" as the last key ends with the text: two floats and half of one, whose rest is the first of "Data1500:".
  set(heading({}) + "Data1500:A041" + hexFloats(2, 5.0F) +
          "SffcLowRange:)SffcHighRange:)Sffc1500Range:)Data:" + hexFloats(2, 1.0F) + "0000",
      "03");
  ASSERT_EQ(calibrationVect.size(), 1u);
  EXPECT_EQ(lens().has1500Range, 1);
  EXPECT_EQ(lens().data[0][0][0], 1.0);
  EXPECT_EQ(lens().data[0][0][1], 2.0);
  EXPECT_EQ(lens().data[0][0][2], 20.0) << "0000A041, lowest byte first: 0x41A00000";
  EXPECT_EQ(lens().data[0][0][3], 5.0);
  EXPECT_EQ(lens().data[0][0][4], 6.0);
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
