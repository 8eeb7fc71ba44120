// A lens' points are read from a calibration folder as they were written there.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>

#include "../ScratchFolder.h"
#include "simulator/CommandLine.h"
#include "simulator/calibration/CalibrationFolder.h"
#include "simulator/calibration/CalibrationText.h"
#include "simulator/calibration/TemperatureCorrection.h"

namespace {

using namespace simulator;
using ::testing::HasSubstr;

class PointsInFolder : public ::testing::Test {
 protected:
  PointsInFolder() {
    options.sensor = {160, 128};
    options.lenses = usualLenses(2, 1);
  }
  void write() { writeCalibrationEntry(folder, "KEOD2001", options); }
  std::string readError(const std::string& lens = "L13mm") {
    try {
      readLensPoints(folder, "KEOD2001", lens);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "";
  }
  ProgramOptions parse(const std::vector<const char*>& words) {
    std::vector<const char*> arguments{"keocam-simulator", "--size", "160x128", "--core-calibration", folder.c_str()};
    arguments.insert(arguments.end(), words.begin(), words.end());
    return std::get<ProgramOptions>(parseCommandLine(static_cast<int>(arguments.size()), arguments.data()));
  }
  ScratchFolder scratch;
  std::string folder = scratch.path() + "/calibrations";
  std::string text_path = folder + "/KEOD2001/calibration.txt";
  std::string manifest_path = folder + "/KEOD2001/manifest.txt";
  CalibrationOptions options;
};

TEST_F(PointsInFolder, OfEveryLens_AreThoseThatWereWritten) {
  write();
  for (std::size_t lens = 0; lens < 2; ++lens) {
    const LensPoints read = readLensPoints(folder, "KEOD2001", options.lenses[lens].name);
    EXPECT_EQ(read.points, lensDataOf(options, lens).points);
    EXPECT_EQ(read.version, 3U);
    EXPECT_EQ(read.with_1500, lens == 0);
  }
}

TEST_F(PointsInFolder, OfOlderGrammars_HaveTheirVersion) {
  options.version = 1;
  options.lenses = usualLenses(2);
  write();
  const LensPoints read = readLensPoints(folder, "KEOD2001", "L13mm");
  EXPECT_EQ(read.points, lensDataOf(options, 1).points);
  EXPECT_EQ(read.version, 1U);
  EXPECT_FALSE(read.with_1500);
}

TEST_F(PointsInFolder, ManifestWithoutAVersion_IsAnErrorThatNamesIt) {
  write();
  for (const char* manifest : {"", "size = 7\n", "version\n", "version = new\n", "version = \n"}) {
    std::ofstream(manifest_path, std::ios::trunc) << manifest;
    EXPECT_THAT(readError(), HasSubstr("'" + manifest_path + "' has no line such as \"version = 03\"")) << manifest;
  }
  std::ofstream(manifest_path, std::ios::trunc) << "# version = 1\n  \nsize = 7\nversion=02";
  EXPECT_EQ(readLensPoints(folder, "KEOD2001", "L13mm").version, 2U);
  std::filesystem::remove(manifest_path);
  EXPECT_THAT(readError(), HasSubstr("there is no manifest '" + manifest_path + "'"));
}

TEST_F(PointsInFolder, PointsThatAreMissingCutOrNoNumbers_AreErrors) {
  options.lenses = usualLenses(1);
  write();
  const std::string sound = calibrationText(options);
  const std::size_t data = sound.find("Data:") + 5;
  const auto errorWith = [&](std::size_t at, std::size_t length, const std::string& with) {
    std::ofstream(text_path, std::ios::trunc) << std::string(sound).replace(at, length, with);
    return readError("L25mm");
  };
  EXPECT_EQ(errorWith(data, 0, ""), "");
  EXPECT_THAT(errorWith(data - 5, 5, "Dada:"), HasSubstr("has no sound points behind Data:"));
  EXPECT_THAT(errorWith(data + 100, 1, "G"), HasSubstr("has no sound points behind Data:"));
  EXPECT_THAT(errorWith(data + 4000, std::string::npos, ""), HasSubstr("has no sound points behind Data:"));
  EXPECT_THAT(errorWith(data, 8, "0000807F"), HasSubstr("has a point that is no number behind Data:"));
}

TEST_F(PointsInFolder, LensOfTheProgram_CorrectsTheScene) {
  write();
  const ProgramOptions program = parse({"--core-lens", "L13mm", "--scene", "uniform"});
  ASSERT_TRUE(program.cameras[0].temperatures->correction);
  const TemperatureCorrection expected(lensDataOf(options, 1).points, 3);
  EXPECT_EQ(program.cameras[0].temperatures->correction->corrected(CalibrationRange::Low, 25, 30),
            expected.corrected(CalibrationRange::Low, 25, 30));
  EXPECT_NO_THROW(parse({"--core-lens", "L25mm", "--scene", "uniform", "--scene-range", "high"}));
  EXPECT_THROW(parse({"--core-lens", "L13mm", "--scene", "uniform", "--scene-range", "high"}), std::runtime_error);
}

}  // namespace
