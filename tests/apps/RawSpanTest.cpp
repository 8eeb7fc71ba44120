// Percentiles and ticks.
#include "apps/keocam/picture/RawSpan.h"

#include <gtest/gtest.h>

#include <numeric>

namespace keocam::cli {
namespace {

std::vector<uint16_t> upTo(std::size_t count) {
  std::vector<uint16_t> values(count);
  std::iota(values.begin(), values.end(), uint16_t{1});
  return values;
}

TEST(RawSpan, Percentile_IsTheValueOfThatRank) {
  EXPECT_EQ(percentileOf(upTo(100), 1.0), 1);
  EXPECT_EQ(percentileOf(upTo(100), 50.0), 50);
  EXPECT_EQ(percentileOf(upTo(100), 99.0), 99);
  EXPECT_EQ(percentileOf(upTo(100), 100.0), 100);
  EXPECT_EQ(percentileOf({7}, 0.0), 7);
}

TEST(RawSpan, AFewExtremePixels_DoNotWidenTheSpan) {
  std::vector<uint16_t> values(1000, 7000);
  for (std::size_t i = 0; i < 500; ++i) values[i] = 7200;
  values[3] = 0;
  values[4] = 65535;
  const RawSpan span = spanOf(values);
  EXPECT_EQ(span.low_counts, 7000);
  EXPECT_EQ(span.high_counts, 7200);
}

TEST(RawSpan, FlatFrame_GetsASpanAroundItsValue) {
  for (const unsigned int value : {0U, 1U, 7000U, 65534U, 65535U}) {
    const RawSpan span = spanOf(std::vector<uint16_t>(50, static_cast<uint16_t>(value)));
    EXPECT_LT(span.low_counts, span.high_counts) << value;
    EXPECT_LE(span.low_counts, value);
    EXPECT_GE(span.high_counts, value);
  }
}

TEST(RawSpan, Steps_CoverTheSpanAndClampOutside) {
  const RawSpan span{100, 200};
  EXPECT_EQ(stepOf(0, span, 256), 0U);
  EXPECT_EQ(stepOf(100, span, 256), 0U);
  EXPECT_EQ(stepOf(150, span, 256), 128U);
  EXPECT_EQ(stepOf(200, span, 256), 255U);
  EXPECT_EQ(stepOf(65535, span, 256), 255U);
}

TEST(RawSpan, Ticks_AreRoundAndWithinTheSpan) {
  EXPECT_EQ(ticksOf({6990, 8010}, 6), (std::vector<uint16_t>{7000, 7200, 7400, 7600, 7800, 8000}));
  EXPECT_EQ(ticksOf({6990, 8010}, 5), (std::vector<uint16_t>{7000, 7500, 8000}));
  EXPECT_EQ(ticksOf({0, 65535}, 4), (std::vector<uint16_t>{0, 20000, 40000, 60000}));
  EXPECT_EQ(ticksOf({7, 8}, 10), (std::vector<uint16_t>{7, 8}));
}

TEST(RawSpan, Ticks_AnySpan_AreFewAndAscending) {
  for (unsigned int low = 0; low < 60000; low += 997) {
    for (unsigned int width = 1; low + width <= 65535; width = width * 3 + 1) {
      const RawSpan span{static_cast<uint16_t>(low), static_cast<uint16_t>(low + width)};
      const std::vector<uint16_t> ticks = ticksOf(span, 6);
      EXPECT_LE(ticks.size(), 6U);
      for (std::size_t i = 0; i < ticks.size(); ++i) {
        EXPECT_GE(ticks[i], span.low_counts);
        EXPECT_LE(ticks[i], span.high_counts);
        if (i > 0) {
          EXPECT_GT(ticks[i], ticks[i - 1]);
        }
      }
      EXPECT_GE(ticks.size(), 2U) << span.low_counts << " to " << span.high_counts;
    }
  }
}

}  // namespace
}  // namespace keocam::cli
