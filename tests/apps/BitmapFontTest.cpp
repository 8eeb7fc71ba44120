// The font of captions.
#include "apps/keocam/picture/BitmapFont.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace keocam::cli {
namespace {

constexpr const char* kDrawn = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-_.:/ ";

std::string shapeOf(char c) {
  std::string shape;
  for (std::size_t row = 0; row < kGlyphHeight; ++row) shape += glyphOf(c)[row];
  return shape;
}

TEST(BitmapFont, DrawnCharacters_AllLookDifferent) {
  std::set<std::string> shapes = {shapeOf('\x01')};
  for (const char* c = kDrawn; *c != '\0'; ++c) EXPECT_TRUE(shapes.insert(shapeOf(*c)).second) << *c;
}

TEST(BitmapFont, LowerCase_LooksLikeCapitals) { EXPECT_EQ(shapeOf('k'), shapeOf('K')); }

TEST(BitmapFont, Text_IsDrawnAtItsPlaceAndScale) {
  RgbImage image(40, 20, {});
  drawText(image, 2, 3, "I", 2, {255, 0, 0});
  EXPECT_EQ(image.at(2, 3), (Rgb{255, 0, 0})) << "the upper left dot of an I";
  EXPECT_EQ(image.at(11, 4), (Rgb{255, 0, 0})) << "its upper right dot, two pixels wide";
  EXPECT_EQ(image.at(2, 6), (Rgb{})) << "left of its stem";
  EXPECT_EQ(image.at(1, 3), (Rgb{}));
}

TEST(BitmapFont, TextBeyondTheEdge_IsCutOff) {
  RgbImage image(8, 5, {});
  drawText(image, 4, 2, "8888", 3, {255, 255, 255});
  EXPECT_EQ(image.pixels.size(), 40U);
  drawText(image, 100, 100, "8", 1, {255, 255, 255});
}

TEST(BitmapFont, TextWidth_HasNoGapAtTheEnd) {
  EXPECT_EQ(textWidth("", 2), 0U);
  EXPECT_EQ(textWidth("1", 2), 10U);
  EXPECT_EQ(textWidth("12", 1), 11U);
}

}  // namespace
}  // namespace keocam::cli
