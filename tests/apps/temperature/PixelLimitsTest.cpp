// Pixels beyond the model's limits.
#include "apps/keocam/temperature/PixelLimits.h"

#include <gtest/gtest.h>

#include "measurement/Region.h"

namespace keocam::cli {
namespace {

SensorModel modelOf(const SensorResponse& response, RawMeaning meaning) {
  const ObjectParameters object;
  return {
      response, sightOf(object, {1.0, 0.006569, 0.01262, -0.002276, -0.00667}, response, 1.0), {-40.0, 550.0}, meaning};
}

const SensorResponse kLowRange{1428.0, 1.0, 342.0, 22.1396484, 16556.0};
const SensorResponse kMiddleRange{1470.0, 1.0, 754.0, 3.0694580078125, 18514.0};

TEST(PixelLimits, Limits_AreWhereTheModelStopsAtThem) {
  const SensorModel model = modelOf(kMiddleRange, RawMeaning::Counts);
  const RawLimits limits = rawLimitsOf(model);
  ASSERT_GT(limits.low.first, 0) << "the coldest raw values have no temperature";
  ASSERT_LT(limits.low.last, limits.high.first);
  EXPECT_EQ(model.celsius(static_cast<uint16_t>(limits.low.last)), -40.0);
  EXPECT_GT(model.celsius(static_cast<uint16_t>(limits.low.last + 1)), -40.0);
  EXPECT_EQ(model.celsius(static_cast<uint16_t>(limits.high.first)), 550.0);
  EXPECT_LT(model.celsius(static_cast<uint16_t>(limits.high.first - 1)), 550.0);
  EXPECT_EQ(limits.high.last, UINT16_MAX);
}

TEST(PixelLimits, LowRange_DoesNotReachTheHighestTemperature) {
  const RawLimits limits = rawLimitsOf(modelOf(kLowRange, RawMeaning::Counts));
  EXPECT_LE(limits.low.first, limits.low.last);
  EXPECT_GT(limits.high.first, limits.high.last);
}

TEST(PixelLimits, TemperaturesOfTheCore_HaveNone) {
  const RawLimits limits = rawLimitsOf(modelOf(kLowRange, RawMeaning::KelvinHighResolution));
  EXPECT_GT(limits.low.first, limits.low.last);
  EXPECT_GT(limits.high.first, limits.high.last);
}

TEST(PixelLimits, Pixels_AreCountedWithinTheRegionOnly) {
  const RawImage image{3, 2, {1, 2, 3, 8, 9, 10}};
  const RawLimits limits{{1, 2}, {9, 20}};
  const LimitedPixels all = limitedPixels(image, RegionSpans(Box{0, 0, 3, 2}, 3, 2), limits);
  EXPECT_EQ(all.low, 2);
  EXPECT_EQ(all.high, 2);
  const LimitedPixels column = limitedPixels(image, RegionSpans(Box{1, 0, 1, 2}, 3, 2), limits);
  EXPECT_EQ(column.low, 1);
  EXPECT_EQ(column.high, 1);
}

}  // namespace
}  // namespace keocam::cli
