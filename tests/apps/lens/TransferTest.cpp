// Progress of a change of lenses: figures, bar, lines, and how often they are shown.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "apps/keocam/lens/TransferReporter.h"
#include "apps/keocam/lens/TransferText.h"

namespace keocam::cli {
namespace {

constexpr uint32_t kTable_bytes = 640 * 512 * 4;

TransferProgress progress(SffcTable table, TransferPhase phase, uint32_t done_bytes) {
  return {table, phase, done_bytes, kTable_bytes};
}

TEST(TransferMeter, Expectation_IsMinutesAndDoublesWithVerification) {
  const double verified_s = TransferMeter(kTable_bytes, Verification::ReadBack).expected_s();
  const double written_s = TransferMeter(kTable_bytes, Verification::None).expected_s();
  EXPECT_EQ(roughDuration(verified_s), "20 minutes");
  EXPECT_EQ(roughDuration(written_s), "10 minutes");
}

TEST(TransferMeter, RateAndTimeLeft_FollowWhatIsMeasured) {
  TransferMeter meter(kTable_bytes, Verification::None);
  meter.note(progress(SffcTable::Low, TransferPhase::Erasing, 0), 0);
  meter.note(progress(SffcTable::Low, TransferPhase::Writing, 0), 10'000);
  const TransferView view = meter.note(progress(SffcTable::Low, TransferPhase::Writing, kTable_bytes / 2), 75'536);
  EXPECT_DOUBLE_EQ(view.fraction, 0.5);
  EXPECT_NEAR(view.rate_bytes_s, 10'000.0, 1.0);
  // Half of this table and the whole other at that rate, an erasure as usual, and the end.
  EXPECT_NEAR(view.left_s, 65.536 + 131.072 + kTable_bytes / 110'000.0 + 2.0, 0.1);
}

TEST(TransferMeter, TooLittleMeasured_DoesNotChangeTheExpectation) {
  TransferMeter meter(kTable_bytes, Verification::ReadBack);
  const double before_s = meter.expected_s();
  const TransferView view = meter.note(progress(SffcTable::Low, TransferPhase::Erasing, 0), 0);
  EXPECT_DOUBLE_EQ(view.left_s, before_s);
  EXPECT_EQ(view.rate_bytes_s, 0.0);
}

TEST(TransferMeter, LastPiece_LeavesOnlyTheEnd) {
  TransferMeter meter(kTable_bytes, Verification::ReadBack);
  EXPECT_DOUBLE_EQ(meter.note(progress(SffcTable::High, TransferPhase::Verifying, kTable_bytes), 5).left_s, 2.0);
}

TEST(TransferMeter, EmptyTable_IsDoneAtOnce) {
  TransferMeter meter(0, Verification::None);
  EXPECT_EQ(meter.note({SffcTable::Low, TransferPhase::Erasing, 0, 0}, 0).fraction, 1.0);
}

TransferView view(SffcTable table, TransferPhase phase, double fraction) {
  return {table, phase, fraction, 4560.0, 605.0};
}

TEST(TransferText, Bar_HasAllFiguresIn80Columns) {
  EXPECT_EQ(transferBar(view(SffcTable::High, TransferPhase::Verifying, 0.5), 79),
            "Verifying the middle-range table [#######........]  50%   4560 B/s   10:05 left");
  EXPECT_EQ(transferBar(view(SffcTable::Low, TransferPhase::Erasing, 0.0), 79),
            "Erasing the low-range table      [...............]   0%   4560 B/s   10:05 left");
}

TEST(TransferText, Bar_KeepsItsWidthWhateverTheFigures) {
  const std::size_t columns = transferBar(view(SffcTable::Low, TransferPhase::Writing, 0.0), 79).size();
  for (const double fraction : {0.01, 0.999, 1.0}) {
    EXPECT_EQ(transferBar(view(SffcTable::Low, TransferPhase::Writing, fraction), 79).size(), columns);
  }
  TransferView early = view(SffcTable::Low, TransferPhase::Writing, 0.0);
  early.rate_bytes_s = 0.0;
  early.left_s = 36'000.0;
  EXPECT_EQ(transferBar(early, 79).size(), columns);
}

TEST(TransferText, Bar_GivesWayOnANarrowTerminal) {
  EXPECT_EQ(transferBar(view(SffcTable::Low, TransferPhase::Writing, 0.5), 60),
            "Writing the low-range table  50%   4560 B/s   10:05 left");
  EXPECT_LE(transferBar(view(SffcTable::Low, TransferPhase::Writing, 0.5), 200).size(), 110U);
}

TEST(TransferText, HundredPercent_IsOnlySaidOfWhatIsDone) {
  const std::string almost = transferLine(view(SffcTable::Low, TransferPhase::Writing, 0.9999));
  EXPECT_EQ(almost, "Writing the low-range table: 99%, 4560 bytes/s, 10:05 left");
}

TEST(TransferText, UnknownRate_IsLeftOut) {
  TransferView early = view(SffcTable::Low, TransferPhase::Erasing, 0.0);
  early.rate_bytes_s = 0.0;
  EXPECT_EQ(transferLine(early), "Erasing the low-range table: 0%, 10:05 left");
}

TEST(TransferText, Durations_AreWrittenAsPeopleReadThem) {
  EXPECT_EQ(clockText(0.0), "0:00");
  EXPECT_EQ(clockText(59.2), "1:00");
  EXPECT_EQ(clockText(3600.0), "1:00:00");
  EXPECT_EQ(clockText(1e12), "99:59:59");
  EXPECT_EQ(roughDuration(0.5), "10 seconds");
  EXPECT_EQ(roughDuration(31.0), "40 seconds");
  EXPECT_EQ(roughDuration(119.0), "2 minutes");
}

std::size_t linesIn(const std::string& text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

TEST(TransferReporter, InALog_ThereIsALineForEachPhaseAndOneEveryTenSeconds) {
  std::ostringstream out;
  TransferReporter reporter(
      out, [] { return Terminal{}; }, TransferMeter(kTable_bytes, Verification::None));
  reporter.report(progress(SffcTable::Low, TransferPhase::Erasing, 0), 0);
  reporter.report(progress(SffcTable::Low, TransferPhase::Erasing, kTable_bytes), 900);
  EXPECT_EQ(linesIn(out.str()), 1U) << out.str();
  for (int64_t now_ms = 1000; now_ms <= 31'500; now_ms += 30) {
    reporter.report(progress(SffcTable::Low, TransferPhase::Writing, static_cast<uint32_t>(now_ms)), now_ms);
  }
  EXPECT_EQ(linesIn(out.str()), 1U + 1U + 3U) << out.str();
}

TEST(TransferReporter, OnATerminal_OneLineIsRewritten) {
  std::ostringstream out;
  const auto look = [] { return Terminal{true, false, 80}; };
  TransferReporter reporter(out, look, TransferMeter(kTable_bytes, Verification::None));
  for (int64_t now_ms = 0; now_ms <= 1000; now_ms += 10) {
    reporter.report(progress(SffcTable::Low, TransferPhase::Writing, static_cast<uint32_t>(now_ms)), now_ms);
  }
  const std::string text = out.str();
  EXPECT_EQ(linesIn(text), 0U);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 11);
  reporter.finish();
  EXPECT_EQ(linesIn(out.str()), 1U);
}

TEST(TransferReporter, EndOfAPhase_IsShownAtOnceOnATerminal) {
  std::ostringstream out;
  const auto look = [] { return Terminal{true, false, 80}; };
  TransferReporter reporter(out, look, TransferMeter(kTable_bytes, Verification::None));
  reporter.report(progress(SffcTable::Low, TransferPhase::Writing, 0), 0);
  reporter.report(progress(SffcTable::Low, TransferPhase::Writing, kTable_bytes), 1);
  EXPECT_NE(out.str().find("100%"), std::string::npos);
}

}  // namespace
}  // namespace keocam::cli
