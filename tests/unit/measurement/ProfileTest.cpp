// Profiles, and what an image may be.
#include "measurement/Profile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <stdexcept>

#include "measurement/RegionSpans.h"
#include "tests/unit/measurement/TestImage.h"

namespace {

using keocam::Line;
using keocam::Pixel;
using keocam::profile;
using keocam::ProfilePoint;
using keocam::TemperatureImage;
using test_images::DoubleImage;
using test_images::kNan;
using test_images::numbered;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<double> valuesAlong(const DoubleImage& image, const Line& line) {
  std::vector<double> values;
  for (const ProfilePoint& point : profile(image.view(), line)) values.push_back(point.value);
  return values;
}

TEST(ProfileTest, Values_AreInTheLinesOrder) {
  const DoubleImage image = numbered(4, 4);
  EXPECT_THAT(valuesAlong(image, {0, 1, 3, 1}), ElementsAre(4, 5, 6, 7));
  EXPECT_THAT(valuesAlong(image, {3, 1, 0, 1}), ElementsAre(7, 6, 5, 4));
  EXPECT_THAT(valuesAlong(image, {2, 3, 2, 0}), ElementsAre(14, 10, 6, 2));
  EXPECT_THAT(valuesAlong(image, {0, 0, 3, 3}), ElementsAre(0, 5, 10, 15));
  EXPECT_THAT(valuesAlong(image, {1, 2, 1, 2}), ElementsAre(9));
}

TEST(ProfileTest, Points_SayTheirPixel) {
  const std::vector<ProfilePoint> points = profile(numbered(4, 4).view(), {3, 0, 2, 1});
  ASSERT_EQ(points.size(), 2u);
  EXPECT_EQ(points[0].pixel, (Pixel{3, 0}));
  EXPECT_EQ(points[1].pixel, (Pixel{2, 1}));
}

TEST(ProfileTest, OutsideTheImage_IsLeftOut) {
  EXPECT_THAT(valuesAlong(numbered(4, 4), {-10, 2, 10, 2}), ElementsAre(8, 9, 10, 11));
  EXPECT_THAT(valuesAlong(numbered(4, 4), {-10, 5, 10, 5}), IsEmpty());
  constexpr int kMin = std::numeric_limits<int>::min();
  constexpr int kMax = std::numeric_limits<int>::max();
  EXPECT_THAT(valuesAlong(numbered(4, 4), {kMax, kMax, kMin, kMin}), ElementsAre(15, 10, 5, 0));
}

TEST(ProfileTest, Nan_IsPassedOn) {
  EXPECT_THAT(valuesAlong(DoubleImage(2, 1, {kNan, 3.0}), {0, 0, 1, 0}), ElementsAre(testing::IsNan(), 3));
}

TEST(ProfileTest, RandomLines_HaveTheRegionsPixelsFromEitherEnd) {
  std::mt19937 random(11);
  std::uniform_int_distribution<int> coordinate(-20, 40);
  const DoubleImage image = numbered(20, 20);
  for (int i = 0; i < 2000; ++i) {
    const Line line{coordinate(random), coordinate(random), coordinate(random), coordinate(random)};
    std::vector<double> there = valuesAlong(image, line);
    std::vector<double> back = valuesAlong(image, {line.x2, line.y2, line.x1, line.y1});
    std::reverse(back.begin(), back.end());
    ASSERT_EQ(there, back);
    std::vector<double> in_region;
    for (const keocam::RowSpan& span : keocam::RegionSpans(line, 20, 20).spans()) {
      for (int x = span.x_begin; x < span.x_end; ++x) in_region.push_back(span.y * 20 + x);
    }
    std::sort(there.begin(), there.end());
    ASSERT_EQ(there, in_region);
  }
}

TEST(TemperatureImageTest, ShapeThatIsNone_IsRefused) {
  const float value = 1;
  const float* const nothing = nullptr;
  EXPECT_THROW(TemperatureImage(&value, -1, 1), std::invalid_argument);
  EXPECT_THROW(TemperatureImage(&value, 1, -1), std::invalid_argument);
  EXPECT_THROW(TemperatureImage(&value, 2, 1, 1), std::invalid_argument);
  EXPECT_THROW(TemperatureImage(nothing, 1, 1), std::invalid_argument);
  EXPECT_EQ(TemperatureImage(nothing, 0, 5).height(), 5);
}

}  // namespace
