// What a check finds in texts that are spoilt in one place each, and where.
#include "apps/keocam/calibration/CalibrationCheck.h"

#include <gtest/gtest.h>

#include "SampleCalibration.h"

namespace keocam::cli {
namespace {

constexpr std::size_t kFloat = 8;  // its digits

using Findings = std::vector<CalibrationFinding>;

Findings check(const std::string& text, const std::string& version = "03") {
  return checkCalibration({text, version, std::string("KEOD2001")}).all();
}

// Exactly one finding: of this severity, at this place, with this in its text.
void expectOne(const Findings& findings, Severity severity, std::optional<std::size_t> offset,
               const std::string& part) {
  std::string all;
  for (const CalibrationFinding& finding : findings) all += finding.text + '\n';
  ASSERT_EQ(findings.size(), 1U) << all;
  EXPECT_EQ(findings[0].severity, severity) << all;
  EXPECT_EQ(findings[0].offset, offset) << all;
  EXPECT_NE(findings[0].text.find(part), std::string::npos) << all;
}

void expectAmong(const Findings& findings, Severity severity, const std::string& part) {
  std::string all;
  for (const CalibrationFinding& finding : findings) {
    if (finding.severity == severity && finding.text.find(part) != std::string::npos) return;
    all += finding.text + '\n';
  }
  ADD_FAILURE() << "not found: " << part << "\namong:\n" << all;
}

TEST(CalibrationCheck, TextsAsTheyShouldBe_HaveNoFindings) {
  EXPECT_EQ(check(SampleRecord().text()).size(), 0U);
  EXPECT_EQ(check(sampleWith1500().text() + '\n' + SampleRecord().text() + "\r\n").size(), 1U) << "one name twice";
  EXPECT_EQ(check(SampleRecord().text(), "02").size(), 0U);
  EXPECT_EQ(check(samplePoints(600), "00").size(), 0U);
  SampleRecord points_only;
  points_only.low.clear();
  points_only.middle.clear();
  EXPECT_EQ(check(points_only.text(), "01").size(), 0U);
}

TEST(CalibrationCheck, EmptyText_IsWrong) { expectOne(check(""), Severity::Wrong, std::nullopt, "empty"); }

TEST(CalibrationCheck, TextWithoutRecords_IsWrong) {
  expectOne(check("0000"), Severity::Wrong, std::nullopt, "no \"BB:\"");
}

TEST(CalibrationCheck, MissingKeys_AreNamed) {
  for (std::string SampleRecord::*member :
       {&SampleRecord::date, &SampleRecord::lens, &SampleRecord::data, &SampleRecord::low, &SampleRecord::middle}) {
    SampleRecord record;
    const std::string key = (record.*member).substr(0, (record.*member).find(':') + 1);
    (record.*member).clear();
    expectOne(check(record.text()), Severity::Wrong, 0, '"' + key + "\" is missing");
  }
}

TEST(CalibrationCheck, BbWithoutDigit_IsWrongAndEndsReading) {
  SampleRecord record;
  record.bb = "BB:x";
  const Findings findings = check(record.text());
  ASSERT_EQ(findings.size(), 2U);
  EXPECT_EQ(findings[0].offset, 3U);
  EXPECT_NE(findings[0].text.find("not followed by a digit"), std::string::npos);
  EXPECT_NE(findings[1].text.find("A reader gives up after 0 lenses"), std::string::npos) << findings[1].text;
}

TEST(CalibrationCheck, ShortPoints_AreCounted) {
  SampleRecord record;
  record.data = "Data:" + samplePoints(598);
  const std::size_t begin = record.text().find("Data:") + 5;
  expectOne(check(record.text()), Severity::Wrong, begin + 4784, "598 of 600 points (4784 of 4800 digits)");
  SampleRecord with_1500 = sampleWith1500();
  with_1500.data_1500.pop_back();
  expectOne(check(with_1500.text()), Severity::Wrong, with_1500.text().find("Data1500:") + 9 + 2399,
            "299 of 300 points (2399 of 2400 digits)");
  expectOne(check(samplePoints(599), "00"), Severity::Wrong, 599 * kFloat, "599 of 600 points");
}

TEST(CalibrationCheck, CharactersThatAreNoDigits_AreCountedFromTheFirst) {
  SampleRecord record;
  record.low[100] = 'g';
  record.low[200] = ' ';
  expectOne(check(record.text()), Severity::Wrong, record.text().find("SffcLowRange:") + 100,
            "\"SffcLowRange:\" has 2 characters that are no hexadecimal digits");
  SampleRecord points;
  points.data[5 + 17] = 'z';
  expectOne(check(points.text()), Severity::Wrong, points.text().find("Data:") + 5 + 17,
            "\"Data:\" has 1 character that is no hexadecimal digit.");
}

TEST(CalibrationCheck, OddDigits_AreWrong) {
  SampleRecord record;
  record.low.insert(record.low.size() - 1, "1");
  expectOne(check(record.text()), Severity::Wrong, record.text().find(')') - 1, "odd number of digits");
}

TEST(CalibrationCheck, TableBeyondItsPlace_IsWrongAndEndsReading) {
  SampleRecord record;
  record.low = "SffcLowRange:" + sampleTable(1310721, '1') + ")";
  const Findings findings = check(record.text());
  expectAmong(findings, Severity::Wrong, "1310721 bytes; at most 1310720 fit");
  expectAmong(findings, Severity::Wrong, "A reader gives up after 0 lenses");
}

TEST(CalibrationCheck, TablesOfDifferentSizes_AreTold) {
  SampleRecord record = sampleWith1500();
  record.middle = "SffcHighRange:" + sampleTable(344064, '2') + ")";
  const std::size_t low = record.text().find("SffcLowRange:") + 13;
  expectOne(check(record.text()), Severity::Wrong, low, "81920 bytes, but \"SffcHighRange:\" 344064");
  SampleRecord high = sampleWith1500();
  high.high = "Sffc1500Range:00)";
  expectOne(check(high.text()), Severity::Doubtful, low, "81920 bytes, but \"Sffc1500Range:\" 1.");
}

TEST(CalibrationCheck, SizeOfNoSensor_IsDoubtful) {
  SampleRecord record;
  record.low = "SffcLowRange:" + sampleTable(1000, '1') + ")";
  record.middle = "SffcHighRange:" + sampleTable(1000, '2') + ")";
  expectOne(check(record.text()), Severity::Doubtful, record.text().find("SffcLowRange:") + 13, "fit no sensor");
  for (const std::size_t bytes : {1310720U, 344064U, 327680U, 81920U, 0U}) {
    record.low = "SffcLowRange:" + sampleTable(bytes, '1') + ")";
    record.middle = "SffcHighRange:" + sampleTable(bytes, '2') + ")";
    EXPECT_EQ(check(record.text()).size(), 0U) << bytes;
  }
}

TEST(CalibrationCheck, TableThatIsNotClosed_IsWrong) {
  SampleRecord record;
  record.middle.pop_back();
  expectOne(check(record.text() + "\n"), Severity::Wrong, record.text().size(), "has no \")\" at its end");
}

TEST(CalibrationCheck, PointsOfALaterLens_AreTold) {
  const std::string first = SampleRecord().text();
  SampleRecord second = sampleWith1500();
  second.lens = "Lens:L13mm";
  const std::string text = first + second.text();
  expectOne(check(text), Severity::Wrong, text.find("Data1500:"),
            "Lens 1 (\"L25mm\"): It has no \"Data1500:\" of its own, so a reader takes that of lens 2");
}

TEST(CalibrationCheck, PointsUpTo1500WithoutTheirTable_AreWrong) {
  SampleRecord record = sampleWith1500();
  record.high.clear();
  expectAmong(check(record.text()), Severity::Wrong, "\"Sffc1500Range:\", which belongs to it, is missing");
}

TEST(CalibrationCheck, InfiniteAndNotANumber_AreCountedFromTheFirst) {
  SampleRecord record;
  record.data.replace(5 + kFloat * 7, 8, "0000807f");    // infinite
  record.data.replace(5 + kFloat * 599, 8, "0000c07f");  // not a number
  expectOne(check(record.text()), Severity::Wrong, record.text().find("Data:") + 5 + kFloat * 7,
            "2 points that are infinite or no number; the first is point 8");
}

TEST(CalibrationCheck, SlopeThatDividesByZero_IsWrongWithItsRow) {
  SampleRecord record;
  const std::size_t row = 5 + kFloat * 5 * 61;  // one degree, middle range
  record.data.replace(row, 8, record.data.substr(row + kFloat * 3, 8));
  expectOne(check(record.text()), Severity::Wrong, record.text().find("Data:") + row,
            "slopes of 1 rows divide by zero, because their first and fourth point are equal; the first is that of 1 "
            "degrees in the middle range");
  EXPECT_EQ(check(record.text(), "02").size(), 0U) << "slopes begin with version 3";
}

TEST(CalibrationCheck, FourthPointZero_IsDoubtful) {
  SampleRecord record;
  record.data.replace(5 + kFloat * 3, 8, "00000000");
  expectOne(check(record.text()), Severity::Doubtful, record.text().find("Data:") + 5 + 24, "no slopes are computed");
}

TEST(CalibrationCheck, TextBehindValues_IsDoubtful) {
  SampleRecord record;
  expectOne(check(record.text() + "\nend\n"), Severity::Doubtful, record.text().size() + 1,
            "3 characters behind the table \"SffcHighRange:\" are never read");
  record.lens += "extra";
  expectOne(check(record.text()), Severity::Doubtful, record.text().find("extra"), "5 characters behind the name");
  SampleRecord points;
  points.data += "00";
  expectOne(check(points.text()), Severity::Doubtful, points.text().find("Sffc") - 2, "2 characters behind the 600");
  expectOne(check("hello " + SampleRecord().text()), Severity::Doubtful, 0, "5 characters stand before the first key");
}

TEST(CalibrationCheck, ShortDateAndName_AreWrong) {
  SampleRecord record;
  record.lens = "Lens:L9";
  expectOne(check(record.text()), Severity::Wrong, record.text().find("L9"), "has 2 of 5 characters");
  record.lens = "Lens:L9\n  ";
  expectOne(check(record.text()), Severity::Wrong, record.text().find("L9"), "has 2 of 5 characters");
  record.lens = "Lens:     ";
  expectOne(check(record.text()), Severity::Doubtful, record.text().find("     "), "blank");
  record = SampleRecord();
  record.date = "Cdate:2026-3-2";
  expectOne(check(record.text()), Severity::Wrong, record.text().find("2026"), "has 8 of 10 characters");
}

TEST(CalibrationCheck, KeysOutOfOrder_AreTold) {
  SampleRecord record;
  std::swap(record.low, record.middle);
  expectAmong(check(record.text()), Severity::Wrong, "\"SffcLowRange:\" stands behind \"SffcHighRange:\"");
  record = SampleRecord();
  std::swap(record.date, record.lens);
  expectOne(check(record.text()), Severity::Doubtful, record.text().find("Cdate:"), "stands behind \"Lens:\"");
  record = SampleRecord();
  record.date += "Cdate:2026-03-03";
  expectOne(check(record.text()), Severity::Doubtful, 20, "stands there again");
  expectAmong(check("Cdate:2026-03-02" + SampleRecord().text()), Severity::Wrong, "stands before any \"BB:\"");
}

TEST(CalibrationCheck, TablesInVersion1_AreDoubtful) {
  expectAmong(check(SampleRecord().text(), "01"), Severity::Doubtful, "\"SffcLowRange:\" is not read in version 01");
}

TEST(CalibrationCheck, SameNameTwice_IsDoubtful) {
  const std::string one = SampleRecord().text();
  expectOne(check(one + one), Severity::Doubtful, one.size(), "Lens 1 has the same name");
}

TEST(CalibrationCheck, BadVersion_IsWrongAndTheTextIsCheckedAllTheSame) {
  for (const char* const version : {"three", "", "-1", "99999999999999999999"}) {
    expectOne(check(SampleRecord().text(), version), Severity::Wrong, std::nullopt, "looks like version 03");
  }
  expectOne(check(SampleRecord().text(), "3rd"), Severity::Doubtful, std::nullopt, "not only digits");
}

TEST(CalibrationCheck, BadSerialNumber_IsWrongFromVersion3On) {
  const std::string text = SampleRecord().text();
  for (const char* const serial : {"KEO", "KEOD", "KEODx"}) {
    const Findings findings = checkCalibration({text, "03", std::string(serial)}).all();
    expectAmong(findings, Severity::Wrong, "class letter and a number");
    expectAmong(findings, Severity::Wrong, "A reader gives up after 0 lenses");
    EXPECT_EQ(checkCalibration({text, "02", std::string(serial)}).all().size(), 0U);
  }
  expectOne(checkCalibration({text, "03", std::string("KEOX2001")}).all(), Severity::Doubtful, std::nullopt,
            "none of C, D and E");
  EXPECT_EQ(checkCalibration({text, "03", std::nullopt}).all().size(), 0U);
}

TEST(CalibrationCheck, ControlCharacters_AreEscaped) {
  SampleRecord record;
  record.lens = "Lens:\x1b[2Jx";
  for (const CalibrationFinding& finding : check(record.text())) {
    EXPECT_EQ(finding.text.find('\x1b'), std::string::npos) << finding.text;
  }
}

TEST(CalibrationCheck, TextCutAnywhere_IsNeverFaultless) {
  const std::string text = sampleWith1500().text();
  for (std::size_t size = 0; size + 1 < text.size(); size += 977) {
    EXPECT_TRUE(checkCalibration({std::string_view(text).substr(0, size), "03", std::nullopt}).anyWrong()) << size;
  }
}

TEST(LikelyVersion, IsReadOffTheKeys) {
  EXPECT_EQ(likelyVersion(samplePoints(600)), "00");
  EXPECT_EQ(likelyVersion(SampleRecord().text()), "03");
  SampleRecord record;
  record.low.clear();
  record.middle.clear();
  EXPECT_EQ(likelyVersion(record.text()), "01");
}

}  // namespace
}  // namespace keocam::cli
