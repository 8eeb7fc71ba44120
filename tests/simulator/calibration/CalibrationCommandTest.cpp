// `keocam-simulator calibration`: its options, what it says and how it ends; and cores that start with a lens' tables.
#include "simulator/CalibrationCommand.h"

#include <gtest/gtest.h>
#include <stdio.h>

#include <array>
#include <filesystem>

#include "../ScratchFolder.h"
#include "../core/CoreBench.h"
#include "TextReader.h"
#include "simulator/CommandLine.h"

namespace {

using namespace simulator;
using ::testing::internal::CaptureStderr;
using ::testing::internal::CaptureStdout;
using ::testing::internal::GetCapturedStderr;
using ::testing::internal::GetCapturedStdout;

struct Outcome {
  int exit_code = -1;
  std::string output;
  std::string errors;
};

class CalibrationCommand : public ::testing::Test {
 protected:
  Outcome run(std::vector<std::string> words) const {
    words.insert(words.begin(), {"calibration", "--folder", folder});
    std::vector<const char*> arguments;
    arguments.reserve(words.size());
    for (const std::string& word : words) arguments.push_back(word.c_str());
    CaptureStdout();
    CaptureStderr();
    Outcome outcome;
    outcome.exit_code = runCalibrationCommand(static_cast<int>(arguments.size()), arguments.data());
    outcome.output = GetCapturedStdout();
    outcome.errors = GetCapturedStderr();
    return outcome;
  }
  static ProgramOptions parse(std::vector<std::string> words) {
    words.insert(words.begin(), "keocam-simulator");
    std::vector<const char*> arguments;
    arguments.reserve(words.size());
    for (const std::string& word : words) arguments.push_back(word.c_str());
    return std::get<ProgramOptions>(parseCommandLine(static_cast<int>(arguments.size()), arguments.data()));
  }
  ScratchFolder scratch;
  std::string folder = scratch.path() + "/calibrations";
};

TEST_F(CalibrationCommand, Options_ReachTheText) {
  const Outcome outcome = run({"--serial", "KEOC7", "--lenses", "3", "--with-1500", "1", "--sensor", "160x128"});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.errors;
  const std::string text = contentsOf(folder + "/KEOC7/calibration.txt");
  EXPECT_EQ(outcome.output,
            folder + "/KEOC7: version 03, " + std::to_string(text.size()) + " bytes, lenses L25mm L13mm L07mm\n");
  const std::vector<ReadLens> lenses = readCalibration(text, 3);
  ASSERT_EQ(lenses.size(), 3U);
  EXPECT_TRUE(lenses[0].with_1500);
  EXPECT_FALSE(lenses[1].with_1500);
  EXPECT_EQ(lenses[2].tables[0].size(), 81920U);
}

TEST_F(CalibrationCommand, GrammarAndSeed_ReachTheText) {
  ASSERT_EQ(run({"--serial", "A", "--grammar", "0"}).exit_code, 0);
  ASSERT_EQ(run({"--serial", "B", "--grammar", "0", "--seed", "2"}).exit_code, 0);
  EXPECT_EQ(contentsOf(folder + "/A/calibration.txt").size(), 4800U);
  EXPECT_NE(contentsOf(folder + "/A/calibration.txt"), contentsOf(folder + "/B/calibration.txt"));
}

TEST_F(CalibrationCommand, Mistakes_EndWithTwoAndWriteNothing) {
  const std::vector<std::vector<std::string>> mistakes = {{"--grammar", "4"},   {"--lenses", "0"},
                                                          {"--lenses", "9"},    {"--grammar", "0", "--lenses", "2"},
                                                          {"--with-1500", "2"}, {"--grammar", "2", "--with-1500", "1"},
                                                          {"--sensor", "1x1"},  {"--serial", "../A"},
                                                          {"--nonsense"}};
  for (const auto& words : mistakes) {
    const Outcome outcome = run(words);
    EXPECT_EQ(outcome.exit_code, 2) << words[0] << " " << words.back();
    EXPECT_FALSE(outcome.errors.empty());
  }
  EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST_F(CalibrationCommand, EntryThatExists_EndsWithOne) {
  ASSERT_EQ(run({"--grammar", "0"}).exit_code, 0);
  const Outcome again = run({"--grammar", "0"});
  EXPECT_EQ(again.exit_code, 1);
  EXPECT_NE(again.errors.find("KEOD2001' exists already"), std::string::npos) << again.errors;
}

TEST_F(CalibrationCommand, OfTheProgram_IsThisOne) {
  const std::string command = std::string(KEOCAM_SIMULATOR_PROGRAM) + " calibration --grammar 0 --folder " + folder;
  FILE* program = ::popen(command.c_str(), "r");
  ASSERT_NE(program, nullptr);
  std::array<char, 4096> line{};
  EXPECT_NE(::fgets(line.data(), line.size(), program), nullptr);
  EXPECT_EQ(::pclose(program), 0);
  EXPECT_EQ(line.data(), folder + "/KEOD2001: version 00, 4800 bytes, lens L25mm\n");
  EXPECT_EQ(contentsOf(folder + "/KEOD2001/calibration.txt").size(), 4800U);
}

TEST_F(CalibrationCommand, CoresOfTheProgram_StartWithTheTablesOfTheirLens) {
  ASSERT_EQ(run({"--lenses", "2", "--sensor", "160x128"}).exit_code, 0);
  const ProgramOptions program = parse({"--size", "160x128", "--core-lens", "L13mm", "--core-calibration", folder});
  const std::vector<ReadLens> lenses = readCalibration(contentsOf(folder + "/KEOD2001/calibration.txt"), 3);
  EXPECT_EQ(program.cameras.at(0).core->lensTable(0), lenses.at(1).tables[0]);
  EXPECT_EQ(program.cameras.at(0).core->lensTable(1), lenses.at(1).tables[1]);
  EXPECT_THROW(parse({"--core-lens", "L13mm", "--core-calibration", folder}), std::invalid_argument)
      << "the tables are for another sensor";
  EXPECT_THROW(parse({"--core-lens", "L99mm", "--core-calibration", folder}), std::runtime_error);
}

TEST_F(CalibrationCommand, CoresOfTheProgram_KeepTheirFlashInFilesOfTheirOwn) {
  const std::string path = scratch.path() + "/core.bin";
  { const ProgramOptions one = parse({"--size", "160x128", "--core-flash", path}); }
  EXPECT_EQ(contentsOf(path).size(), 3U * 131072);
  const ProgramOptions two = parse({"--size", "160x128", "--cameras", "2", "--core-flash", path});
  two.cameras.at(1).core->setLensTable(0, Bytes(81920, 7));
  two.cameras.at(1).core->saveFlash();
  EXPECT_EQ(contentsOf(path + ".KEOD2002")[131072], 7);
  EXPECT_EQ(contentsOf(path + ".KEOD2001")[131072], '\xFF');
}

}  // namespace
