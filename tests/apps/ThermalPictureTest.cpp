// From raw counts to a PNG.
#include "apps/keocam/picture/ThermalPicture.h"

#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <stdexcept>

#include "apps/keocam/picture/Palette.h"
#include "apps/keocam/picture/Png.h"

namespace keocam::cli {
namespace {

// A ramp from cold on the left to hot on the right.
RawImage ramp(uint32_t width, uint32_t height) {
  RawImage image{width, height, {}};
  for (uint32_t y = 0; y < height; ++y) {
    for (uint32_t x = 0; x < width; ++x) image.counts.push_back(static_cast<uint16_t>(7000 + x));
  }
  return image;
}

TEST(ThermalPicture, WideFrame_KeepsItsSize) {
  const PictureLayout layout = layoutOf(640, 512);
  EXPECT_EQ(layout.enlargement, 1U);
  EXPECT_GT(layout.width, 640U);
  EXPECT_GT(layout.height, 512U);
}

TEST(ThermalPicture, NarrowFrame_IsDoubled) {
  EXPECT_EQ(layoutOf(399, 256).enlargement, 2U);
  EXPECT_EQ(layoutOf(400, 256).enlargement, 1U);
  const PictureLayout layout = layoutOf(160, 128);
  const RgbImage picture = thermalPicture(ramp(160, 128), "KEOD2001");
  EXPECT_EQ(picture.width, layout.width);
  EXPECT_EQ(picture.height, layout.height);
  EXPECT_EQ(picture.at(layout.frame_x + 80, layout.frame_y), picture.at(layout.frame_x + 81, layout.frame_y + 1));
}

TEST(ThermalPicture, FourteenBitFrame_SpansTheWholePalette) {
  const PictureLayout layout = layoutOf(640, 480);
  const RgbImage picture = thermalPicture(ramp(640, 480), "KEOD2001");
  EXPECT_EQ(picture.at(layout.frame_x, layout.frame_y), thermalPalette().front());
  EXPECT_EQ(picture.at(layout.frame_x + 639, layout.frame_y + 479), thermalPalette().back());
}

TEST(ThermalPicture, ScaleBar_GoesFromHotAtTheTopToCold) {
  const PictureLayout layout = layoutOf(640, 480);
  const RgbImage picture = thermalPicture(ramp(640, 480), "KEOD2001");
  EXPECT_EQ(picture.at(layout.bar_x, layout.bar_y), thermalPalette().back());
  EXPECT_EQ(picture.at(layout.bar_x, layout.bar_y + layout.bar_height - 1), thermalPalette().front());
}

TEST(ThermalPicture, SmallestFrames_StillMakeAPicture) {
  for (const auto& [width, height] : {std::pair(1U, 1U), std::pair(1U, 500U), std::pair(500U, 1U), std::pair(7U, 3U)}) {
    const RgbImage picture = thermalPicture(ramp(width, height), "a title that is far too long for so small a picture");
    EXPECT_EQ(picture.pixels.size(), picture.width * picture.height);
  }
}

TEST(ThermalPicture, FlatFrame_IsOneColour) {
  const PictureLayout layout = layoutOf(500, 10);
  RawImage image{500, 10, std::vector<uint16_t>(5000, 7000)};
  const RgbImage picture = thermalPicture(image, "KEOD2001");
  EXPECT_EQ(picture.at(layout.frame_x, layout.frame_y), picture.at(layout.frame_x + 499, layout.frame_y + 9));
}

TEST(Png, Decoded_GivesThePictureBack) {
  const RgbImage picture = thermalPicture(ramp(160, 128), "KEOD2001");
  const std::vector<uint8_t> bytes = encodePng(picture);
  png_image decoded{};
  decoded.version = PNG_IMAGE_VERSION;
  ASSERT_NE(png_image_begin_read_from_memory(&decoded, bytes.data(), bytes.size()), 0) << decoded.message;
  EXPECT_EQ(decoded.format, static_cast<png_uint_32>(PNG_FORMAT_RGB));
  ASSERT_EQ(decoded.width, picture.width);
  ASSERT_EQ(decoded.height, picture.height);
  std::vector<Rgb> pixels(picture.pixels.size());
  ASSERT_NE(png_image_finish_read(&decoded, nullptr, pixels.data(), 0, nullptr), 0) << decoded.message;
  EXPECT_EQ(pixels, picture.pixels);
}

TEST(Png, NoPixels_AreRefused) { EXPECT_THROW(encodePng(RgbImage(0, 5, {})), std::runtime_error); }

}  // namespace
}  // namespace keocam::cli
