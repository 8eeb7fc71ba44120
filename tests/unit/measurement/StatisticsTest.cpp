// Statistics of regions: what counts, what does not, and how exact they are.
#include "measurement/Statistics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <stdexcept>

#include "tests/unit/measurement/TestImage.h"

namespace {

using keocam::Box;
using keocam::measure;
using keocam::Pixel;
using keocam::RegionSpans;
using keocam::Spot;
using keocam::Statistics;
using test_images::DoubleImage;
using test_images::FloatImage;
using test_images::kInfinity;
using test_images::kNan;
using test_images::numbered;

constexpr Pixel kNowhere = {-1, -1};

void expectNoNumbers(const Statistics& statistics) {
  EXPECT_EQ(statistics.count, 0);
  for (const double number : {statistics.minimum, statistics.maximum, statistics.mean, statistics.standard_deviation}) {
    EXPECT_TRUE(std::isnan(number)) << number;
  }
  EXPECT_EQ(statistics.minimum_at, kNowhere);
  EXPECT_EQ(statistics.maximum_at, kNowhere);
}

TEST(StatisticsTest, Box_IsMeasuredAlone) {
  const Statistics statistics = measure(numbered(10, 10).view(), Box{2, 3, 3, 2});
  EXPECT_EQ(statistics.count, 6);
  EXPECT_EQ(statistics.minimum, 32);
  EXPECT_EQ(statistics.minimum_at, (Pixel{2, 3}));
  EXPECT_EQ(statistics.maximum, 44);
  EXPECT_EQ(statistics.maximum_at, (Pixel{4, 4}));
  EXPECT_DOUBLE_EQ(statistics.mean, 38);
  // 32 33 34 42 43 44: the squares of -6 -5 -4 4 5 6 are 154, of a population of 6.
  EXPECT_DOUBLE_EQ(statistics.standard_deviation, std::sqrt(154.0 / 6));
}

TEST(StatisticsTest, OnePixel_DeviatesNotAtAll) {
  const Statistics statistics = measure(numbered(4, 4).view(), Spot{3, 3});
  EXPECT_EQ(statistics.count, 1);
  EXPECT_EQ(statistics.minimum, 15);
  EXPECT_EQ(statistics.maximum, 15);
  EXPECT_EQ(statistics.mean, 15);
  EXPECT_EQ(statistics.standard_deviation, 0);
}

TEST(StatisticsTest, NoPixel_HasNoNumbers) {
  const Statistics statistics = measure(numbered(4, 4).view(), Spot{4, 4});
  expectNoNumbers(statistics);
  EXPECT_EQ(statistics.nan_count, 0);
}

TEST(StatisticsTest, Nan_IsCountedAndNothingElse) {
  FloatImage image(20, 2, 5.0F);
  image.at(0, 0) = std::nanf("");
  image.at(19, 0) = 7;
  image.at(7, 1) = -std::nanf("");
  const Statistics statistics = measure(image.view(), Box{0, 0, 20, 2});
  EXPECT_EQ(statistics.nan_count, 2);
  EXPECT_EQ(statistics.infinite_count, 0);
  EXPECT_EQ(statistics.count, 38);
  EXPECT_EQ(statistics.minimum, 5);
  EXPECT_EQ(statistics.minimum_at, (Pixel{1, 0}));
  EXPECT_EQ(statistics.maximum_at, (Pixel{19, 0}));
  EXPECT_DOUBLE_EQ(statistics.mean, 5 + 2.0 / 38);
}

TEST(StatisticsTest, Infinities_AreCountedAndNothingElse) {
  DoubleImage image(9, 1, 1.0);
  image.at(0, 0) = kInfinity;
  image.at(4, 0) = -kInfinity;
  image.at(8, 0) = kNan;
  const Statistics statistics = measure(image.view(), Box{0, 0, 9, 1});
  EXPECT_EQ(statistics.infinite_count, 2);
  EXPECT_EQ(statistics.nan_count, 1);
  EXPECT_EQ(statistics.count, 6);
  EXPECT_EQ(statistics.minimum, 1);
  EXPECT_EQ(statistics.maximum, 1);
  EXPECT_EQ(statistics.mean, 1);
  EXPECT_EQ(statistics.standard_deviation, 0);
}

TEST(StatisticsTest, NothingFinite_HasNoNumbers) {
  DoubleImage image(3, 2, kNan);
  image.at(1, 1) = kInfinity;
  const Statistics statistics = measure(image.view(), Box{0, 0, 3, 2});
  expectNoNumbers(statistics);
  EXPECT_EQ(statistics.nan_count, 5);
  EXPECT_EQ(statistics.infinite_count, 1);
}

TEST(StatisticsTest, EqualExtremes_AreTheFirstInRowOrder) {
  FloatImage image(40, 3, 2.0F);
  for (const auto& [x, y] : {std::pair{30, 1}, std::pair{39, 1}, std::pair{0, 2}}) image.at(x, y) = 9;
  for (const auto& [x, y] : {std::pair{31, 1}, std::pair{35, 1}, std::pair{1, 2}}) image.at(x, y) = -9;
  const Statistics statistics = measure(image.view(), Box{0, 0, 40, 3});
  EXPECT_EQ(statistics.maximum_at, (Pixel{30, 1}));
  EXPECT_EQ(statistics.minimum_at, (Pixel{31, 1}));
}

TEST(StatisticsTest, SmallDeviation_OfALargeMean_IsExact) {
  DoubleImage image(640, 512, 300.0);
  for (std::size_t i = 0; i < image.values.size(); ++i) image.values[i] += i % 2 == 0 ? 0.01 : -0.01;
  const Statistics statistics = measure(image.view(), Box{0, 0, 640, 512});
  EXPECT_NEAR(statistics.mean, 300, 1e-12);
  EXPECT_NEAR(statistics.standard_deviation, 0.01, 1e-13);
}

TEST(StatisticsTest, SmallDeviation_AfterAnOutlier_IsExact) {
  // Rows of very different means: the outlier comes first, and must not spoil what follows.
  DoubleImage image(1000, 1000, 300.0);
  for (std::size_t i = 0; i < image.values.size(); ++i) image.values[i] += i % 2 == 0 ? 0.001 : -0.001;
  image.at(0, 0) = 1e6;
  const Statistics all = measure(image.view(), Box{0, 0, 1000, 1000});
  const double outlier = 1e6 - 300;
  EXPECT_NEAR(all.mean, 300 + outlier / 1e6, 1e-8);
  EXPECT_NEAR(all.standard_deviation / (outlier / 1e3), 1, 1e-6);
  EXPECT_NEAR(measure(image.view(), Box{0, 1, 1000, 999}).standard_deviation, 0.001, 1e-13);
}

TEST(StatisticsTest, Stride_SkipsWhatIsBetweenRows) {
  const DoubleImage whole = numbered(10, 10);
  const keocam::TemperatureImage part(whole.values.data() + 22, 3, 4, 10);
  const Statistics statistics = measure(part, Box{0, 0, 3, 4});
  EXPECT_EQ(statistics.count, 12);
  EXPECT_EQ(statistics.minimum, 22);
  EXPECT_EQ(statistics.maximum, 54);
  EXPECT_EQ(statistics.maximum_at, (Pixel{2, 3}));
  EXPECT_DOUBLE_EQ(statistics.mean, 38);
}

TEST(StatisticsTest, RegionOfAnotherImageSize_IsRefused) {
  const RegionSpans region(Spot{0, 0}, 5, 4);
  EXPECT_THROW(measure(numbered(4, 5).view(), region), std::invalid_argument);
  EXPECT_EQ(measure(numbered(5, 4).view(), region).count, 1);
}

template <typename Value>
void expectAsDefined(std::mt19937& random) {
  std::uniform_int_distribution<int> size(1, 70);
  std::uniform_real_distribution<Value> celsius(-40, 550);
  test_images::TestImage<Value> image(size(random), size(random), Value{});
  for (Value& value : image.values) {
    value = celsius(random);
    const int odd = size(random) * size(random);
    if (odd == 1) value = static_cast<Value>(kNan);
    if (odd == 2) value = static_cast<Value>(-kInfinity);
    if (odd == 12) value = 20;
  }
  const Box box{0, 0, size(random), size(random)};
  const Statistics statistics = measure(image.view(), box);

  Statistics naive;
  long double sum = 0;
  const auto forEach = [&](const auto& visit) {
    for (int y = 0; y < std::min(box.height, image.height); ++y) {
      for (int x = 0; x < std::min(box.width, image.width); ++x) visit(double{image.at(x, y)}, Pixel{x, y});
    }
  };
  forEach([&](double value, Pixel pixel) {
    naive.nan_count += std::isnan(value);
    naive.infinite_count += std::isinf(value);
    if (!std::isfinite(value)) return;
    ++naive.count;
    sum += value;
    if (!(value >= naive.minimum)) naive.minimum = value, naive.minimum_at = pixel;
    if (!(value <= naive.maximum)) naive.maximum = value, naive.maximum_at = pixel;
  });
  const long double mean = sum / static_cast<long double>(naive.count);
  long double squares = 0;
  forEach([&](double value, Pixel /*pixel*/) {
    if (std::isfinite(value)) squares += (value - mean) * (value - mean);
  });

  ASSERT_EQ(statistics.count, naive.count);
  ASSERT_EQ(statistics.nan_count, naive.nan_count);
  ASSERT_EQ(statistics.infinite_count, naive.infinite_count);
  if (naive.count == 0) return;
  ASSERT_EQ(statistics.minimum, naive.minimum);
  ASSERT_EQ(statistics.maximum, naive.maximum);
  ASSERT_EQ(statistics.minimum_at, naive.minimum_at);
  ASSERT_EQ(statistics.maximum_at, naive.maximum_at);
  ASSERT_NEAR(statistics.mean, static_cast<double>(mean), 1e-11);
  ASSERT_NEAR(statistics.standard_deviation, std::sqrt(static_cast<double>(squares) / static_cast<double>(naive.count)),
              1e-11);
}

TEST(StatisticsTest, RandomImages_AreMeasuredAsDefined) {
  std::mt19937 random(5);
  for (int i = 0; i < 300; ++i) {
    ASSERT_NO_FATAL_FAILURE(expectAsDefined<float>(random));
    ASSERT_NO_FATAL_FAILURE(expectAsDefined<double>(random));
  }
}

}  // namespace
