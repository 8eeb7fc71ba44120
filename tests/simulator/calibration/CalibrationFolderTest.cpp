// Entries of a calibration folder: written whole or not at all, and looked up for a lens' tables.
#include "simulator/calibration/CalibrationFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "../ScratchFolder.h"
#include "simulator/calibration/CalibrationText.h"
#include "simulator/calibration/LensData.h"

namespace {

using namespace simulator;
namespace fs = std::filesystem;

class Entry : public ::testing::Test {
 protected:
  Entry() {
    options.sensor = {20, 10};
    options.lenses = usualLenses(3, 1);
  }
  template <typename Action>
  static std::string errorOf(Action action) {
    try {
      action();
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "";
  }
  std::string writeError() {
    return errorOf([this] { writeCalibrationEntry(folder, "KEOD2001", options); });
  }
  std::string readError(const std::string& lens) {
    return errorOf([&] { readLensTables(folder, "KEOD2001", lens); });
  }
  ScratchFolder scratch;
  std::string folder = scratch.path() + "/deep/calibrations";
  std::string text_path = folder + "/KEOD2001/calibration.txt";
  CalibrationOptions options;
};

TEST_F(Entry, Written_HasTheTextAndAManifestOfItsSize) {
  const CalibrationEntry entry = writeCalibrationEntry(folder, "KEOD2001", options);
  EXPECT_EQ(entry.path, folder + "/KEOD2001");
  EXPECT_EQ(contentsOf(text_path), calibrationText(options));
  EXPECT_EQ(entry.text_bytes, calibrationText(options).size());
  EXPECT_EQ(contentsOf(folder + "/KEOD2001/manifest.txt"),
            "# A made-up calibration, from seed 1\nversion = 03\nsize = " + std::to_string(entry.text_bytes) + "\n");
  EXPECT_EQ(std::distance(fs::directory_iterator(entry.path), fs::directory_iterator()), 2);
}

TEST_F(Entry, ThatExists_IsLeftAloneAndNamed) {
  writeCalibrationEntry(folder, "KEOD2001", options);
  options.seed = 2;
  EXPECT_NE(writeError().find("'" + folder + "/KEOD2001' exists already"), std::string::npos);
  options.seed = 1;
  EXPECT_EQ(contentsOf(text_path), calibrationText(options));
  EXPECT_NO_THROW(writeCalibrationEntry(folder, "KEOD2002", options));
}

TEST_F(Entry, FolderThatIsAFile_IsAnErrorThatNamesIt) {
  folder = scratch.path() + "/file";
  std::ofstream(folder) << "x";
  EXPECT_NE(writeError().find("cannot make the folder '" + folder), std::string::npos) << writeError();
}

TEST_F(Entry, SerialNumbersThatLeadElsewhere_AreRefused) {
  for (const std::string& serial : {std::string(), std::string(".."), std::string("a/b"), std::string(65, 'A')}) {
    EXPECT_THROW(writeCalibrationEntry(folder, serial, options), std::invalid_argument) << serial;
  }
  EXPECT_FALSE(fs::exists(folder));
}

TEST_F(Entry, OptionsThatDoNotServe_LeaveNothingBehind) {
  options.lenses[0].name = "much too long";
  EXPECT_THROW(writeCalibrationEntry(folder, "KEOD2001", options), std::invalid_argument);
  EXPECT_FALSE(fs::exists(folder));
}

TEST_F(Entry, LensTables_AreThoseThatWereWritten) {
  options.lenses[2].name = "W7";
  writeCalibrationEntry(folder, "KEOD2001", options);
  for (std::size_t lens = 0; lens < options.lenses.size(); ++lens) {
    const std::array<Bytes, 2> tables = readLensTables(folder, "KEOD2001", options.lenses[lens].name);
    EXPECT_EQ(tables[0], lensDataOf(options, lens).tables[0]);
    EXPECT_EQ(tables[1], lensDataOf(options, lens).tables[1]);
  }
}

TEST_F(Entry, LensesThatAreNotThere_AreErrorsThatNameThoseThatAre) {
  EXPECT_NE(readError("L25mm").find("no calibration '" + text_path + "'"), std::string::npos);
  writeCalibrationEntry(folder, "KEOD2001", options);
  EXPECT_NE(readError("l25mm").find("there are: L25mm, L13mm, L07mm"), std::string::npos) << readError("l25mm");
  std::ofstream(text_path, std::ios::trunc) << "nothing";
  EXPECT_NE(readError("L25mm").find("there are none"), std::string::npos);
}

TEST_F(Entry, TablesThatAreMissingOrDamaged_AreErrors) {
  options.version = 1;
  options.lenses = usualLenses(2);
  writeCalibrationEntry(folder, "KEOD2001", options);
  EXPECT_NE(readError("L25mm").find("no sound table behind SffcLowRange:"), std::string::npos);
  options.version = 3;
  const std::string sound = calibrationText(options);
  for (const auto& [find, with] : {std::pair<std::string, std::string>{")\n", "A)\n"}, {")\n", "AG)\n"}, {")", "("}}) {
    std::string text = sound;
    const std::size_t high = text.find("SffcHighRange:");
    text.replace(text.find(find, high), find.size(), with);
    // Without its end the table would reach into the next lens.
    std::ofstream(text_path, std::ios::trunc) << text;
    EXPECT_NE(readError("L25mm").find("no sound table behind SffcHighRange:"), std::string::npos) << with;
    EXPECT_EQ(readError("L13mm"), "") << "the other lens is as it was";
  }
}

}  // namespace
