// A calibration text with and without a manifest, and what is given instead of it.
#include "apps/keocam/calibration/CalibrationFile.h"

#include <gtest/gtest.h>

#include <fstream>

#include "../TemporaryFolder.h"
#include "SampleCalibration.h"
#include "apps/keocam/CommandFailure.h"

namespace keocam::cli {
namespace {

CalibrationFile fileWith(const std::string& manifest) {
  CalibrationFile file;
  file.text = SampleRecord().text();
  file.manifest_text = manifest;
  file.folder_name = "KEOD2001";
  return file;
}

std::string goodManifest() { return "version = 03\nsize = " + std::to_string(SampleRecord().text().size()) + "\n"; }

TEST(CalibrationReading, Manifest_TellsVersionAndTheFolderTheCamera) {
  const CalibrationReading reading = readingOf(fileWith(goodManifest()), {});
  EXPECT_EQ(reading.version, "03");
  EXPECT_FALSE(reading.version_guessed);
  EXPECT_EQ(reading.serial_number, "KEOD2001");
  EXPECT_EQ(reading.findings.all().size(), 0U);
}

TEST(CalibrationReading, WhatIsGiven_Outweighs) {
  const CalibrationReading reading = readingOf(fileWith(goodManifest()), {"02", "KEOC1850"});
  EXPECT_EQ(reading.version, "02");
  EXPECT_EQ(reading.serial_number, "KEOC1850");
}

TEST(CalibrationReading, ManifestOfAnotherSize_IsWrong) {
  const CalibrationReading reading = readingOf(fileWith("version = 03\nsize = 7\n"), {});
  ASSERT_EQ(reading.findings.all().size(), 1U);
  EXPECT_TRUE(reading.findings.anyWrong());
  EXPECT_NE(reading.findings.all()[0].text.find("7 bytes, but it has "), std::string::npos);
}

TEST(CalibrationReading, BrokenManifest_IsWrongAndItsVersionTaken) {
  const CalibrationReading reading = readingOf(fileWith("version = 02\n"), {});
  EXPECT_TRUE(reading.findings.anyWrong());
  EXPECT_EQ(reading.version, "02");
  EXPECT_TRUE(readingOf(fileWith("nonsense"), {}).version_guessed);
}

TEST(CalibrationReading, NoManifest_GuessesTheVersionAndNoCamera) {
  CalibrationFile file = fileWith("");
  file.manifest_text.reset();
  const CalibrationReading reading = readingOf(file, {});
  EXPECT_EQ(reading.version, "03");
  EXPECT_TRUE(reading.version_guessed);
  EXPECT_FALSE(reading.serial_number);
  EXPECT_FALSE(reading.findings.anyWrong());
  EXPECT_EQ(reading.findings.all().size(), 2U);
}

TEST(CalibrationFile, FileWithManifest_IsRead) {
  const TemporaryFolder folder;
  std::ofstream(folder.file("text")) << "BB:2";
  std::ofstream(folder.file("manifest.txt")) << "version = 01";
  const CalibrationFile file = readCalibrationFile(folder.file("text"));
  EXPECT_EQ(file.text, "BB:2");
  EXPECT_EQ(file.manifest_text, "version = 01");
  EXPECT_EQ(file.folder_name, folder.path().filename().string());
}

TEST(CalibrationFile, WhatCannotBeRead_IsNamed) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink("/dev/zero", folder.path() / "endless");
  for (const std::string& path : {folder.file("none"), folder.path().string(), folder.file("endless")}) {
    try {
      readCalibrationFile(path);
      ADD_FAILURE() << path << " was read";
    } catch (const CommandFailure& failure) {
      EXPECT_EQ(failure.status(), ExitStatus::Failure);
      EXPECT_NE(std::string(failure.what()).find(path), std::string::npos) << failure.what();
    }
  }
}

}  // namespace
}  // namespace keocam::cli
