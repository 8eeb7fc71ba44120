// Frames of several pixel formats.
#include "apps/keocam/frames/RawFrame.h"

#include <gtest/gtest.h>

namespace keocam::cli {
namespace {

constexpr uint32_t kMono8 = 0x01080001;
constexpr uint32_t kMono14 = 0x01100025;
constexpr uint32_t kMono16 = 0x01100007;
constexpr uint32_t kRgb8 = 0x02180014;

TEST(RawFrame, SixteenBitFormats_AreLittleEndian) {
  const uint8_t data[] = {0x34, 0x12, 0xff, 0x3f};
  for (const uint32_t format : {kMono14, kMono16}) {
    const auto statistics = rawStatisticsOf({data, sizeof data, 2, 1, format});
    ASSERT_TRUE(statistics);
    EXPECT_EQ(statistics->min_counts, 0x1234);
    EXPECT_EQ(statistics->max_counts, 0x3fff);
    const auto image = rawImageOf({data, sizeof data, 2, 1, format});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->counts, (std::vector<uint16_t>{0x1234, 0x3fff}));
  }
}

TEST(RawFrame, Mono8_IsOneBytePerPixel) {
  const uint8_t data[] = {1, 2, 255};
  const RawFrame frame{data, sizeof data, 3, 1, kMono8};
  EXPECT_EQ(rawStatisticsOf(frame)->max_counts, 255);
  EXPECT_EQ(rawImageOf(frame)->counts, (std::vector<uint16_t>{1, 2, 255}));
}

TEST(RawFrame, OtherFormats_HaveNoRawCounts) {
  const uint8_t data[] = {1, 2, 3};
  EXPECT_FALSE(rawStatisticsOf({data, sizeof data, 1, 1, kRgb8}));
  EXPECT_FALSE(rawImageOf({data, sizeof data, 1, 1, kRgb8}));
  EXPECT_EQ(pixelFormatName(kRgb8), "0x02180014");
  EXPECT_EQ(pixelFormatName(kMono14), "Mono14");
  EXPECT_EQ(understoodPixelFormats(), "Mono8, Mono14, Mono16");
}

TEST(RawFrame, HalfAPixelAtTheEnd_IsLeftOut) {
  const uint8_t data[] = {1, 0, 9};
  EXPECT_EQ(rawStatisticsOf({data, sizeof data, 1, 1, kMono16})->pixels, 1U);
  EXPECT_FALSE(rawStatisticsOf({data, 1, 1, 1, kMono16}));
}

TEST(RawFrame, FewerBytesThanTheSizeSays_MakeNoImage) {
  const uint8_t data[] = {1, 0, 2, 0};
  EXPECT_FALSE(rawImageOf({data, sizeof data, 2, 2, kMono16}));
  EXPECT_FALSE(rawImageOf({data, sizeof data, 0xffffffff, 0xffffffff, kMono16}));
  EXPECT_FALSE(rawImageOf({data, sizeof data, 0, 2, kMono16}));
}

}  // namespace
}  // namespace keocam::cli
