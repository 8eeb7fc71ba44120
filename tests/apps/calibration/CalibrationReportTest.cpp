// A calibration and the findings on it, as text and as JSON.
#include "apps/keocam/calibration/CalibrationReport.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "SampleCalibration.h"
#include "apps/keocam/terminal/PrintableText.h"
#include "apps/keocam/terminal/Table.h"

namespace keocam::cli {
namespace {

using nlohmann::json;

CalibrationOverview overviewOf(const std::string& text) {
  CalibrationOverview overview;
  overview.path = "calibrations/KEOD2001/calibration.txt";
  overview.size_bytes = text.size();
  overview.crc32 = crc32Of(text.data(), text.size());
  overview.reading.version = "03";
  overview.reading.serial_number = "KEOD2001";
  overview.lenses = summariesOf(readCalibrationLayout(text, 3, "KEOD2001", {}), Checksums::Crc32);
  return overview;
}

TEST(LensSummary, Crc32_IsTheUsualOne) {
  EXPECT_EQ(crcText(crc32Of("123456789", 9)), "cbf43926");
  EXPECT_EQ(crcText(crc32Of("", 0)), "00000000");
}

TEST(LensSummary, TableChecksums_AreThoseOfTheBytes) {
  const auto lenses = summariesOf(readCalibrationLayout(sampleWith1500().text(), 3, "KEOD2001", {}), Checksums::Crc32);
  ASSERT_EQ(lenses.size(), 1U);
  const std::string bytes(kSampleTable_bytes, '\x11');
  EXPECT_EQ(lenses[0].low.size_bytes, kSampleTable_bytes);
  EXPECT_EQ(lenses[0].low.crc32, crc32Of(bytes.data(), bytes.size()));
  EXPECT_TRUE(lenses[0].middle.crc32 && lenses[0].high.crc32);
  EXPECT_NE(lenses[0].low.crc32, lenses[0].middle.crc32);
}

TEST(CalibrationOverview, Text_FitsATerminal) {
  const CalibrationOverview overview = overviewOf(sampleWith1500().text() + SampleRecord().text());
  std::istringstream lines(overviewText(overview, 80));
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count) EXPECT_LE(columnsOf(line), 80U) << line;
  EXPECT_EQ(count, 9);
  const std::string text = overviewText(overview, kUnlimitedWidth);
  EXPECT_NE(text.find("L25mm  2026-03-02  low, middle, high  81920  "), std::string::npos) << text;
  EXPECT_NE(text.find("Version  03\n"), std::string::npos) << text;
}

TEST(CalibrationOverview, NoLens_IsSaid) {
  CalibrationOverview overview = overviewOf("");
  overview.reading.version_guessed = true;
  EXPECT_NE(overviewText(overview, 80).find("Lenses   none\n"), std::string::npos);
  EXPECT_NE(overviewText(overview, 80).find("03 (as the text looks)\n"), std::string::npos);
}

TEST(CalibrationOverview, Json_HasItAll) {
  const json object = json::parse(overviewJson(overviewOf(sampleWith1500().text() + SampleRecord().text())));
  EXPECT_EQ(object["camera"], "KEOD2001");
  EXPECT_EQ(object["manifest_size_bytes"], nullptr);
  ASSERT_EQ(object["lenses"].size(), 2U);
  const json& first = object["lenses"][0];
  EXPECT_EQ(first["ranges"], (json{"low", "middle", "high"}));
  EXPECT_EQ(first["sensor"], "160x128");
  EXPECT_EQ(first["table_bytes"], kSampleTable_bytes);
  EXPECT_EQ(first["bb"], 2);
  EXPECT_EQ(first["table_crc32"]["low"].get<std::string>().size(), 8U);
  EXPECT_EQ(object["lenses"][1]["table_crc32"]["high"], nullptr);
}

TEST(FindingsReport, EachFinding_IsALine) {
  CalibrationFindings findings;
  findings.wrong(17, "This is wrong.");
  findings.setSubject("Lens 1");
  findings.doubtful(std::nullopt, "This is doubtful.");
  EXPECT_EQ(findingsText("file", findings.all()),
            "wrong: byte 17: This is wrong.\ndoubtful: Lens 1: This is doubtful.\n");
  EXPECT_EQ(findingsText("file", {}), "file: nothing is wrong.\n");
}

TEST(FindingsReport, Json_SaysWhetherAnythingIsWrong) {
  CalibrationFindings findings;
  findings.doubtful(std::nullopt, "doubtful");
  EXPECT_EQ(json::parse(findingsJson("file", findings.all()))["ok"], true);
  findings.wrong(0, "wrong");
  const json object = json::parse(findingsJson("file", findings.all()));
  EXPECT_EQ(object["ok"], false);
  EXPECT_EQ(object["findings"][0]["offset"], nullptr);
  EXPECT_EQ(object["findings"][1], (json{{"severity", "wrong"}, {"offset", 0}, {"text", "wrong"}}));
}

}  // namespace
}  // namespace keocam::cli
