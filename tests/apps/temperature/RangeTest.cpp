// Which range a core is in, and what a change of it says.
#include "FailureText.h"
#include "apps/keocam/temperature/RangeNames.h"
#include "apps/keocam/temperature/RangeText.h"

namespace keocam::cli {
namespace {

constexpr RangeModes kLow = CameraSerialSettings::LowRange;
constexpr RangeModes kMiddle = CameraSerialSettings::MiddleRange;
constexpr RangeModes kHigh = CameraSerialSettings::HighRange;

TEST(RangeNames, NamesAndRanges_AreEachOthers) {
  EXPECT_EQ(rangeNamesText(), "low, middle, high");
  for (const RangeModes range : {kLow, kMiddle, kHigh}) EXPECT_EQ(findRange(rangeName(range)), range);
  for (const char* const wrong : {"", "Low", "lo", "3"}) EXPECT_FALSE(findRange(wrong)) << wrong;
}

TEST(RangeNames, WithoutAWord_TheGainDecides) {
  EXPECT_EQ(rangeIn({{}, true, true}), kLow);
  EXPECT_EQ(rangeIn({{}, false, false}), kMiddle);
  EXPECT_EQ(rangeIn({{}, false, true}), kMiddle);
  EXPECT_TRUE(isGuessed({{}, false, true}));
  for (const RangeQuestion& sure : {RangeQuestion{{}, true, true}, RangeQuestion{{}, false, false},
                                    RangeQuestion{kMiddle, false, true}, RangeQuestion{kHigh, false, true}}) {
    EXPECT_FALSE(isGuessed(sure));
  }
}

TEST(RangeNames, AWordThatAgrees_Decides) {
  EXPECT_EQ(rangeIn({kLow, true, false}), kLow);
  EXPECT_EQ(rangeIn({kMiddle, false, true}), kMiddle);
  EXPECT_EQ(rangeIn({kHigh, false, true}), kHigh);
  EXPECT_EQ(lowGainRange({}), kMiddle);
  EXPECT_EQ(lowGainRange(kLow), kMiddle) << "or low gain would be taken for the low range";
  EXPECT_EQ(lowGainRange(kHigh), kHigh);
}

TEST(RangeNames, Contradiction_NamesTheFix) {
  const auto refusal = [](const RangeQuestion& question) {
    return failureTextOf(ExitStatus::Failure, [&] { rangeIn(question); });
  };
  EXPECT_TRUE(mentions(refusal({kLow, false, true}), "\"keocam range set low\""));
  EXPECT_TRUE(mentions(refusal({kMiddle, true, true}), "\"keocam range set middle\""));
  EXPECT_TRUE(mentions(refusal({kHigh, true, true}), "\"keocam range set high\""));
  EXPECT_TRUE(mentions(refusal({kHigh, false, false}), "--calibrations"));
}

TEST(RangeText, DoneChange_IsNoFailure) {
  EXPECT_FALSE(rangeFailure(kLow, {RangeChangeEnd::Changed, CAM_OK}));
  EXPECT_EQ(rangeDoneText(kMiddle), "The core is in the middle range.");
  EXPECT_TRUE(mentions(rangeDoneText(kHigh), "--range high"));
}

TEST(RangeText, EveryEnd_SaysHowThingsStand) {
  const struct {
    RangeChangeEnd end;
    ResponseStatuses status;
    ExitStatus exit_status;
    const char* part;
  } rows[] = {
      {RangeChangeEnd::UnknownRange, CAM_RANGE_ERROR, ExitStatus::Failure, "no such range; nothing was sent"},
      {RangeChangeEnd::LensLacksRange, CAM_FEATURE_NOT_ENABLED, ExitStatus::Failure, "\"keocam lens list\""},
      {RangeChangeEnd::GainNotSet, UNKNOWN_ERROR, ExitStatus::LinkLost, "stays in the range that it is in, because"},
      {RangeChangeEnd::TableNotUsed, CAM_RANGE_ERROR, ExitStatus::Failure, "another range's table, because"},
      {RangeChangeEnd::ResolutionNotSet, CAM_CHECKSUM_ERROR, ExitStatus::Failure, "another range's resolution"},
      {RangeChangeEnd::FlatFieldNotDone, UNKNOWN_ERROR, ExitStatus::LinkLost, "\"keocam ffc\""},
  };
  for (const auto& row : rows) {
    const auto failure = rangeFailure(kMiddle, {row.end, row.status});
    ASSERT_TRUE(failure) << row.part;
    EXPECT_EQ(failure->status(), row.exit_status) << row.part;
    EXPECT_TRUE(mentions(failure->what(), row.part)) << failure->what();
    EXPECT_TRUE(mentions(failure->what(), "The change to the middle range is not complete: ")) << failure->what();
  }
}

}  // namespace
}  // namespace keocam::cli
