// Calibration texts of every grammar, read back by a reader of the tests' own.
#include "simulator/calibration/CalibrationText.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "TextReader.h"
#include "simulator/calibration/LensData.h"

namespace {

using namespace simulator;

CalibrationOptions optionsOf(unsigned version, std::size_t lenses, std::size_t with_1500 = 0) {
  CalibrationOptions options;
  options.version = version;
  options.sensor = {20, 10};
  options.lenses = usualLenses(lenses, with_1500);
  return options;
}

std::vector<float> pointsIn(const LensData& data, std::size_t ranges) {
  std::vector<float> points;
  for (std::size_t range = 0; range < ranges; ++range) {
    for (const CalibrationRow& row : data.points[range]) points.insert(points.end(), row.begin(), row.end());
  }
  return points;
}

void expectReadBack(const CalibrationOptions& options) {
  const std::vector<ReadLens> read = readCalibration(calibrationText(options), options.version);
  ASSERT_EQ(read.size(), options.lenses.size());
  for (std::size_t i = 0; i < read.size(); ++i) {
    const LensData data = lensDataOf(options, i);
    const CalibrationLens& lens = options.lenses[i];
    EXPECT_EQ(read[i].points, pointsIn(data, lens.with_1500 ? 3 : 2));
    EXPECT_EQ(read[i].tables, data.tables);
    if (options.version == 0) continue;
    EXPECT_EQ(read[i].bb, lens.bb);
    EXPECT_EQ(read[i].date, lens.date);
    EXPECT_EQ(read[i].name, nameInText(lens.name));
    EXPECT_EQ(read[i].with_1500, lens.with_1500);
  }
}

TEST(CalibrationText, Grammar0_IsTheDigitsOfTwoRanges) {
  const std::string text = calibrationText(optionsOf(0, 1));
  EXPECT_EQ(text.size(), 4800U);
  EXPECT_EQ(text.find_first_not_of("0123456789ABCDEF"), std::string::npos);
  expectReadBack(optionsOf(0, 1));
}

TEST(CalibrationText, Grammar1_HasPointsAndNoTables) {
  expectReadBack(optionsOf(1, 3));
  EXPECT_EQ(calibrationText(optionsOf(1, 3)).find("Sffc"), std::string::npos);
}

TEST(CalibrationText, Grammar2_HasTwoTables) {
  const CalibrationOptions options = optionsOf(2, 3);
  expectReadBack(options);
  EXPECT_EQ(lensDataOf(options, 2).tables[1].size(), 800U);
  EXPECT_TRUE(lensDataOf(options, 2).tables[2].empty());
}

TEST(CalibrationText, Grammar3_HasTheThirdRangeForTheLensesThatHaveIt) {
  for (const std::size_t with_1500 : {0U, 1U, 2U, 3U}) expectReadBack(optionsOf(3, 3, with_1500));
  EXPECT_EQ(lensDataOf(optionsOf(3, 1, 1), 0).tables[2].size(), 800U);
}

TEST(CalibrationText, Lens_IsWrittenAsGiven) {
  CalibrationOptions options = optionsOf(3, 2);
  options.lenses[0] = {"W7", "1999-12-31", 9, true, false};
  options.lenses[1].with_tables = false;
  expectReadBack(options);
  const std::string text = calibrationText(options);
  EXPECT_EQ(text.substr(0, 43), "BB:9\nCdate:1999-12-31\nLens:W7   \nData:" + text.substr(38, 5));
  EXPECT_NE(text.find("SffcLowRange:)\nSffcHighRange:)\n"), std::string::npos);
}

TEST(CalibrationText, SensorsFullTable_Has1310720Bytes) {
  CalibrationOptions options;
  options.version = 2;
  const std::string text = calibrationText(options);
  EXPECT_EQ(text.size(), 5U + 17 + 11 + 5 + 4800 + 1 + 13 + 2621440 + 2 + 14 + 2621440 + 2);
  expectReadBack(options);
}

TEST(CalibrationText, TableSizeOfItsOwn_IsKeptToTheByte) {
  CalibrationOptions options = optionsOf(3, 1, 1);
  for (const std::size_t size : {1U, 129U, 1001U}) {
    options.table_bytes = size;
    expectReadBack(options);
    EXPECT_EQ(lensDataOf(options, 0).tables[2].size(), size);
  }
}

TEST(CalibrationText, SameSeed_GivesTheSameTextEverywhere) {
  uint64_t hash = 0xCBF29CE484222325U;
  for (const char letter : calibrationText(optionsOf(3, 2, 1)))
    hash = (hash ^ static_cast<uint8_t>(letter)) * 0x100000001B3U;
  EXPECT_EQ(hash, 3752337600634909458U)
      << "files made earlier, or on another machine, are no longer what their seed says";
}

TEST(CalibrationText, OtherSeedOrLens_GivesOtherNumbers) {
  CalibrationOptions options = optionsOf(3, 2, 2);
  const LensData first = lensDataOf(options, 0);
  const LensData second = lensDataOf(options, 1);
  options.seed = 2;
  const LensData other = lensDataOf(options, 0);
  for (std::size_t range = 0; range < 3; ++range) {
    EXPECT_NE(first.points[range], second.points[range]);
    EXPECT_NE(first.tables[range], second.tables[range]);
    EXPECT_NE(first.points[range], other.points[range]);
    EXPECT_NE(first.tables[range], other.tables[range]);
  }
  EXPECT_NE(first.tables[0], first.tables[1]);
}

TEST(CalibrationText, Stream_GetsTheSameText) {
  std::ostringstream stream;
  writeCalibrationText(stream, optionsOf(3, 3, 1));
  EXPECT_EQ(stream.str(), calibrationText(optionsOf(3, 3, 1)));
}

TEST(CalibrationText, Version_HasTwoDigits) {
  EXPECT_EQ(versionText(0), "00");
  EXPECT_EQ(versionText(3), "03");
  EXPECT_EQ(versionText(12), "12");
}

/// The text of what a change to sound options leads to.
template <typename Change>
std::string errorAfter(Change change, unsigned version = 3) {
  CalibrationOptions options = optionsOf(version, 2);
  change(options);
  try {
    calibrationText(options);
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
  return "";
}

TEST(CalibrationText, OptionsThatDoNotServe_AreExplained) {
  using Options = CalibrationOptions;
  EXPECT_NE(errorAfter([](Options& o) { o.lenses[1].name = "L250mm"; }).find("'L250mm'"), std::string::npos);
  EXPECT_NE(errorAfter([](Options& o) { o.lenses[1].name = ""; }).find("1 to 5"), std::string::npos);
  EXPECT_NE(errorAfter([](Options& o) { o.lenses[1].name = "BB:1"; }).find("':'"), std::string::npos);
  EXPECT_NE(errorAfter([](Options& o) { o.lenses[0].date = "2026"; }).find("'2026'"), std::string::npos);
  EXPECT_NE(errorAfter([](Options& o) { o.lenses[0].bb = 10; }).find("one digit"), std::string::npos);
  EXPECT_NE(errorAfter([](Options& o) { o.lenses.clear(); }).find("one lens at least"), std::string::npos);
  EXPECT_NE(errorAfter([](Options& o) { o.version = 100; }).find("two digits"), std::string::npos);
  EXPECT_NE(errorAfter([](Options& o) { o.version = 0; }).find("one lens only"), std::string::npos);
  EXPECT_NE(errorAfter([](Options& o) { o.sensor.width = 0; }).find("pixels"), std::string::npos);
  EXPECT_NE(errorAfter([](Options& o) { o.lenses[0].with_1500 = true; }, 2).find("grammar 3"), std::string::npos);
  EXPECT_NE(errorAfter([](Options& o) { o.lenses[1].with_1500 = true; }).find("put it behind"), std::string::npos);
  EXPECT_EQ(errorAfter([](Options& o) { o.lenses[0].with_1500 = true; }), "");
  EXPECT_EQ(errorAfter([](Options& o) { o.lenses[1].name = o.lenses[0].name; }), "") << "two of one name may be wanted";
  EXPECT_THROW(usualLenses(9), std::invalid_argument);
  EXPECT_THROW(usualLenses(2, 3), std::invalid_argument);
  EXPECT_THROW(lensDataOf(optionsOf(3, 2), 2), std::out_of_range);
}

}  // namespace
