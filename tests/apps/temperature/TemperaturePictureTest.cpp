// From temperatures to colours, ticks and a picture.
#include "apps/keocam/picture/TemperaturePicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace keocam::cli {
namespace {

constexpr float kNothingMeasured = std::numeric_limits<float>::quiet_NaN();

std::vector<std::string> labelsOf(double low, double high, std::size_t most) {
  std::vector<std::string> labels;
  for (const ScaleTick& tick : ticksOf(TemperatureSpan{low, high}, most)) labels.push_back(tick.label);
  return labels;
}

TEST(TemperatureSpan, FewExtremePixels_DoNotDecide) {
  std::vector<float> values(1000, 20.0F);
  std::fill(values.begin(), values.begin() + 500, 30.0F);
  values[0] = 1000.0F;
  values[1] = -100.0F;
  values[2] = kNothingMeasured;
  const TemperatureSpan span = temperatureSpanOf({values.data(), 100, 10});
  EXPECT_DOUBLE_EQ(span.low, 20.0);
  EXPECT_DOUBLE_EQ(span.high, 30.0);
}

TEST(TemperatureSpan, FlatPicture_IsHalfADegreeWide) {
  const std::vector<float> values(100, 20.0F);
  const TemperatureSpan span = temperatureSpanOf({values.data(), 10, 10});
  EXPECT_DOUBLE_EQ(span.low, 19.75);
  EXPECT_DOUBLE_EQ(span.high, 20.25);
}

TEST(TemperatureSpan, PictureWithoutTemperatures_HasOneAllTheSame) {
  const std::vector<float> values(4, kNothingMeasured);
  const TemperatureSpan span = temperatureSpanOf({values.data(), 2, 2});
  EXPECT_LT(span.low, span.high);
}

TEST(TemperatureSpan, Steps_EndAtBothEnds) {
  const TemperatureSpan span{10.0, 20.0};
  EXPECT_EQ(stepOf(10.0, span, 256), 0U);
  EXPECT_EQ(stepOf(-300.0, span, 256), 0U);
  EXPECT_EQ(stepOf(15.0, span, 11), 5U);
  EXPECT_EQ(stepOf(20.0, span, 256), 255U);
  EXPECT_EQ(stepOf(std::numeric_limits<double>::infinity(), span, 256), 255U);
}

TEST(TemperatureSpan, Ticks_AreRoundWithAsManyDecimalsAsNeeded) {
  EXPECT_EQ(labelsOf(24.8, 87.2, 8), (std::vector<std::string>{"30", "40", "50", "60", "70", "80"}));
  EXPECT_EQ(labelsOf(-1.0, 1.0, 5), (std::vector<std::string>{"-1.0", "-0.5", "0.0", "0.5", "1.0"}));
  EXPECT_EQ(labelsOf(19.75, 20.25, 6), (std::vector<std::string>{"19.8", "19.9", "20.0", "20.1", "20.2"}));
  EXPECT_EQ(labelsOf(0.0, 2000.0, 3), (std::vector<std::string>{"0", "1000", "2000"}));
}

TEST(TemperatureSpan, Ticks_AreNeverTooManyAndWithinTheSpan) {
  for (const double width : {0.1, 0.37, 1.0, 9.99, 55.0, 100.0, 1234.5, 19999.0}) {
    for (const double low : {-400.0, -0.05, 0.0, 20.0, 1500.0}) {
      for (const std::size_t most : {2U, 5U, 12U}) {
        const auto ticks = ticksOf(TemperatureSpan{low, low + width}, most);
        ASSERT_LE(ticks.size(), most) << low << ' ' << width;
        for (const ScaleTick& tick : ticks) {
          EXPECT_GE(tick.part, -1e-9);
          EXPECT_LE(tick.part, 1.0 + 1e-9);
        }
      }
    }
  }
}

TEST(TemperaturePicture, ColdAndHot_AreTheEndsOfThePalette) {
  const std::vector<float> values = {10.0F, 15.0F, 20.0F, kNothingMeasured};
  const Palette& palette = *findPalette("white-hot");
  const RgbImage picture = temperaturePicture({values.data(), 4, 1}, {10.0, 20.0}, palette, "a caption");
  const PictureLayout layout = layoutOf(4, 1);
  EXPECT_EQ(picture.at(layout.frame_x, layout.frame_y), palette.front());
  EXPECT_EQ(picture.at(layout.frame_x + 2 * layout.enlargement, layout.frame_y), palette.back());
  EXPECT_EQ(picture.at(layout.bar_x, layout.bar_y), palette.back());
  const Rgb none = picture.at(layout.frame_x + 3 * layout.enlargement, layout.frame_y);
  EXPECT_EQ(std::count(palette.begin(), palette.end(), none), 0) << "what has no temperature looks like none";
}

TEST(Palettes, EveryName_IsOneAndGoesFromDarkToLightOrBack) {
  for (const std::string& name : paletteNames()) {
    const Palette* const palette = findPalette(name);
    ASSERT_NE(palette, nullptr) << name;
    EXPECT_EQ(lightnessOf(palette->front()) < lightnessOf(palette->back()), name != "black-hot") << name;
  }
  EXPECT_EQ(findPalette("iron"), nullptr);
}

}  // namespace
}  // namespace keocam::cli
