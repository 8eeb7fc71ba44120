// Histograms and percentiles.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <stdexcept>

#include "measurement/Histogram.h"
#include "measurement/Percentiles.h"
#include "tests/unit/measurement/TestImage.h"

namespace {

using keocam::Box;
using keocam::Histogram;
using keocam::histogram;
using keocam::HistogramBins;
using keocam::percentiles;
using keocam::Spot;
using test_images::DoubleImage;
using test_images::FloatImage;
using test_images::kInfinity;
using test_images::kNan;
using test_images::numbered;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(HistogramTest, Bin_HasItsLowerEdgeAndTheLastBoth) {
  const DoubleImage image(8, 1, {0.0, 1.0, 1.5, 2.0, 3.0, 4.0, -0.5, 4.5});
  const Histogram counted = histogram(image.view(), Box{0, 0, 8, 1}, {0, 4, 4});
  EXPECT_THAT(counted.counts, ElementsAre(1, 2, 1, 2));
  EXPECT_EQ(counted.below, 1);
  EXPECT_EQ(counted.above, 1);
  EXPECT_EQ(counted.nan_count, 0);
}

TEST(HistogramTest, NanAndInfinities_AreCountedApart) {
  const DoubleImage image(5, 1, {kNan, kInfinity, -kInfinity, -kInfinity, 1.0});
  const Histogram counted = histogram(image.view(), Box{0, 0, 5, 1}, {0, 4, 2});
  EXPECT_THAT(counted.counts, ElementsAre(1, 0));
  EXPECT_EQ(counted.below, 2);
  EXPECT_EQ(counted.above, 1);
  EXPECT_EQ(counted.nan_count, 1);
}

TEST(HistogramTest, NoPixel_CountsNothing) {
  EXPECT_THAT(histogram(numbered(2, 2).view(), Spot{9, 9}, {0, 4, 3}).counts, ElementsAre(0, 0, 0));
}

TEST(HistogramTest, EveryEdge_IsInTheBinThatItBegins) {
  const HistogramBins bins{-0.3, 36.6, 997};
  for (int i = 0; i < bins.count; ++i) {
    const Histogram counted = histogram(DoubleImage(1, 1, bins.edge(i)).view(), Spot{0, 0}, bins);
    ASSERT_EQ(counted.counts[static_cast<std::size_t>(i)], 1) << i;
    const double before = std::nextafter(bins.edge(i), -kInfinity);
    const Histogram lower = histogram(DoubleImage(1, 1, before).view(), Spot{0, 0}, bins);
    ASSERT_EQ(i == 0 ? lower.below : lower.counts[static_cast<std::size_t>(i - 1)], 1) << i;
  }
}

TEST(HistogramTest, EveryPixel_IsCountedOnce) {
  std::mt19937 random(3);
  std::normal_distribution<float> celsius(20, 30);
  FloatImage image(64, 51, 0.0F);
  for (float& value : image.values) value = celsius(random);
  image.at(1, 1) = std::nanf("");
  for (const int count : {1, 2, 255, 10'000}) {
    const HistogramBins bins{-12.5, 71.3, count};
    const Histogram counted = histogram(image.view(), Box{0, 0, 64, 51}, bins);
    const int64_t inside = std::accumulate(counted.counts.begin(), counted.counts.end(), int64_t{0});
    EXPECT_EQ(inside, std::count_if(image.values.begin(), image.values.end(),
                                    [](float value) { return value >= -12.5 && value <= 71.3; }));
    EXPECT_EQ(inside + counted.below + counted.above + counted.nan_count, 64 * 51);
  }
}

TEST(HistogramTest, BoundsOrBinsThatAreNone_AreRefused) {
  const DoubleImage image(1, 1, 0.0);
  const double huge = std::numeric_limits<double>::max();
  const HistogramBins refused[] = {{1, 1, 5},         {2, 1, 5},          {kNan, 1, 5},          {0, kNan, 5},
                                   {0, kInfinity, 5}, {-kInfinity, 0, 5}, {-huge, huge, 5},      {0, 1, 0},
                                   {0, 1, -1},        {0, 1, 1'000'001},  {20, 20 + 4e-15, 100}, {0, 1e-320, 2}};
  for (const HistogramBins& bins : refused) {
    EXPECT_THROW(histogram(image.view(), Spot{0, 0}, bins), std::invalid_argument) << bins.lower << ' ' << bins.count;
  }
  EXPECT_NO_THROW(histogram(image.view(), Spot{0, 0}, {0, 1, 1'000'000}));
  EXPECT_THAT(histogram(image.view(), Spot{0, 0}, {-huge / 2, huge / 2, 3}).counts, ElementsAre(0, 1, 0));
}

TEST(PercentilesTest, BetweenRanks_AreInterpolated) {
  const DoubleImage image(4, 1, {40.0, 10.0, 30.0, 20.0});
  EXPECT_THAT(percentiles(image.view(), Box{0, 0, 4, 1}, {0, 25, 50, 75, 90, 100}),
              ElementsAre(10, 17.5, 25, 32.5, testing::DoubleEq(37), 40));
}

TEST(PercentilesTest, Results_AreInTheOrderAsked) {
  EXPECT_THAT(percentiles(numbered(11, 1).view(), Box{0, 0, 11, 1}, {100, 0, 50, 50, 10}), ElementsAre(10, 0, 5, 5, 1));
  EXPECT_THAT(percentiles(numbered(11, 1).view(), Box{0, 0, 11, 1}, {}), IsEmpty());
}

TEST(PercentilesTest, OnePixel_IsEveryPercentile) {
  EXPECT_THAT(percentiles(numbered(5, 1).view(), Spot{3, 0}, {0, 33, 100}), ElementsAre(3, 3, 3));
}

TEST(PercentilesTest, ValuesThatAreNotFinite_AreLeftOut) {
  const DoubleImage image(5, 1, {kNan, 1.0, kInfinity, 2.0, -kInfinity});
  EXPECT_THAT(percentiles(image.view(), Box{0, 0, 5, 1}, {0, 50, 100}), ElementsAre(1, 1.5, 2));
}

TEST(PercentilesTest, NothingFinite_IsNan) {
  const DoubleImage image(2, 1, kNan);
  EXPECT_THAT(percentiles(image.view(), Box{0, 0, 2, 1}, {0, 50}), ElementsAre(testing::IsNan(), testing::IsNan()));
  EXPECT_THAT(percentiles(image.view(), Spot{5, 5}, {50}), ElementsAre(testing::IsNan()));
}

TEST(PercentilesTest, PercentageOutOfRange_IsRefused) {
  for (const double percent : {-0.001, 100.001, kNan, kInfinity}) {
    EXPECT_THROW(percentiles(numbered(2, 2).view(), Spot{0, 0}, {50, percent}), std::invalid_argument) << percent;
  }
}

TEST(PercentilesTest, RandomValues_AreThoseOfTheSortedOnes) {
  std::mt19937 random(8);
  std::uniform_int_distribution<int> size(1, 400);
  std::uniform_real_distribution<double> percent(0, 100);
  std::uniform_int_distribution<int> celsius(-40, 60);  // with many equal ones
  for (int round = 0; round < 200; ++round) {
    DoubleImage image(size(random), 1, 0.0);
    for (double& value : image.values) value = celsius(random) / 2.0;
    std::vector<double> percents{0, 100};
    for (int i = 0; i < 6; ++i) percents.push_back(percent(random));
    std::shuffle(percents.begin(), percents.end(), random);
    const std::vector<double> results = percentiles(image.view(), Box{0, 0, image.width, 1}, percents);

    std::vector<double> sorted = image.values;
    std::sort(sorted.begin(), sorted.end());
    for (std::size_t i = 0; i < percents.size(); ++i) {
      const double rank = static_cast<double>(sorted.size() - 1) * percents[i] / 100;
      const double below = sorted[static_cast<std::size_t>(std::floor(rank))];
      const double above = sorted[static_cast<std::size_t>(std::ceil(rank))];
      ASSERT_NEAR(results[i], below + (rank - std::floor(rank)) * (above - below), 1e-12) << percents[i];
    }
  }
}

}  // namespace
