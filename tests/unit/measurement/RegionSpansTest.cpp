// Regions laid onto images: which pixels each shape has, at edges and far beyond them.
#include "measurement/RegionSpans.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "tests/unit/measurement/Drawing.h"

namespace {

using drawing::draw;
using keocam::Box;
using keocam::Ellipse;
using keocam::Line;
using keocam::Mask;
using keocam::Polygon;
using keocam::Region;
using keocam::RegionSpans;
using keocam::Spot;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

TEST(RegionSpansTest, Spot_IsOnePixel) { EXPECT_EQ(draw(Spot{1, 2}, 3, 3), "...\n...\n.#.\n"); }

TEST(RegionSpansTest, Spot_WithRadius_IsASquareAround) {
  EXPECT_EQ(draw(Spot{2, 1, 1}, 5, 4), ".###.\n.###.\n.###.\n.....\n");
}

TEST(RegionSpansTest, Box_HasItsWidthAndHeight) {
  EXPECT_EQ(draw(Box{1, 1, 3, 2}, 5, 4), ".....\n.###.\n.###.\n.....\n");
}

TEST(RegionSpansTest, Box_HalfOutside_IsCut) {
  EXPECT_EQ(draw(Box{-2, -1, 4, 3}, 4, 3), "##..\n##..\n....\n");
  EXPECT_EQ(draw(Box{2, 1, 40, 30}, 4, 3), "....\n..##\n..##\n");
}

TEST(RegionSpansTest, WhollyOutside_HasNoPixels) {
  const Region outside[] = {Spot{-1, 0},          Spot{4, 2},         Box{4, 0, 9, 9},   Box{-9, -9, 9, 99},
                            Ellipse{-5, 1, 4, 1}, Line{-3, 0, -1, 9}, Line{0, 3, 10, 3}, Line{-9, 1, 1, -9},
                            Ellipse{1, 9, 1, 6},  Spot{2, -4, 3},     Box{0, 3, 4, 1}};
  for (const Region& region : outside) EXPECT_THAT(RegionSpans(region, 4, 3).spans(), IsEmpty()) << region.index();
  EXPECT_THAT(RegionSpans(Polygon{{{4, 0}, {9, 0}, {9, 9}}}, 4, 3).spans(), IsEmpty());
}

TEST(RegionSpansTest, SpansAreInRowOrder_HalfOpen) {
  EXPECT_THAT(RegionSpans(Box{1, 1, 2, 2}, 5, 5).spans(),
              ElementsAre(keocam::RowSpan{1, 1, 3}, keocam::RowSpan{2, 1, 3}));
}

TEST(RegionSpansTest, PixelCount_IsOfWhatLiesInTheImage) {
  EXPECT_EQ(RegionSpans(Box{-5, -5, 100, 100}, 640, 512).pixelCount(), 95 * 95);
}

TEST(RegionSpansTest, Ellipse_HasItsHalfAxes) {
  EXPECT_EQ(draw(Ellipse{4, 2, 4, 2}, 9, 5), "....#....\n.#######.\n#########\n.#######.\n....#....\n");
}

TEST(RegionSpansTest, Ellipse_WithoutAnAxis_IsALine) {
  EXPECT_EQ(draw(Ellipse{2, 1, 1, 0}, 5, 3), ".....\n.###.\n.....\n");
  EXPECT_EQ(draw(Ellipse{2, 1, 0, 1}, 5, 3), "..#..\n..#..\n..#..\n");
  EXPECT_EQ(draw(Ellipse{2, 1, 0, 0}, 5, 3), ".....\n..#..\n.....\n");
}

TEST(RegionSpansTest, Polygon_HasItsOutlineAndCorners) {
  EXPECT_EQ(draw(Polygon{{{1, 0}, {3, 0}, {3, 2}, {1, 2}}}, 5, 4), ".###.\n.###.\n.###.\n.....\n");
  EXPECT_EQ(draw(Polygon{{{2, 0}, {4, 2}, {2, 4}, {0, 2}}}, 5, 5), "..#..\n.###.\n#####\n.###.\n..#..\n");
}

TEST(RegionSpansTest, Polygon_Concave_LeavesItsNotchOut) {
  EXPECT_EQ(draw(Polygon{{{0, 0}, {3, 3}, {6, 0}, {6, 5}, {0, 5}}}, 7, 6),
            "#.....#\n##...##\n###.###\n#######\n#######\n#######\n");
}

TEST(RegionSpansTest, Polygon_CrossingItself_LeavesOutWhatItWindsAroundTwice) {
  // Two squares in one run, the second inside the first: a frame with an outline inside.
  EXPECT_EQ(draw(Polygon{{{0, 0}, {6, 0}, {6, 6}, {0, 6}, {0, 0}, {2, 2}, {4, 2}, {4, 4}, {2, 4}, {2, 2}}}, 7, 7),
            "#######\n#######\n#######\n###.###\n#######\n#######\n#######\n");
  EXPECT_EQ(draw(Polygon{{{0, 0}, {4, 4}, {4, 0}, {0, 4}}}, 5, 5), "#...#\n##.##\n#####\n##.##\n#...#\n");
}

TEST(RegionSpansTest, Polygon_Flat_IsItsOutline) {
  EXPECT_EQ(draw(Polygon{{{1, 1}, {3, 1}, {2, 1}}}, 5, 3), ".....\n.###.\n.....\n");
  EXPECT_EQ(draw(Polygon{{{2, 1}, {2, 1}, {2, 1}}}, 5, 3), ".....\n..#..\n.....\n");
}

TEST(RegionSpansTest, Line_HasAPixelInEachColumnOrRow) {
  EXPECT_EQ(draw(Line{0, 0, 5, 2}, 6, 3), "##....\n..##..\n....##\n");
  EXPECT_EQ(draw(Line{0, 0, 1, 3}, 2, 4), "#.\n#.\n.#\n.#\n");
  EXPECT_EQ(draw(Line{1, 1, 1, 1}, 3, 3), "...\n.#.\n...\n");
  EXPECT_EQ(draw(Line{3, 0, 0, 3}, 4, 4), "...#\n..#.\n.#..\n#...\n");
}

TEST(RegionSpansTest, Mask_HasThePixelsWhoseByteIsNotZero) {
  EXPECT_EQ(draw(Mask{4, 2, {0, 1, 255, 0, 7, 0, 0, 128}}, 4, 2), ".##.\n#..#\n");
  EXPECT_THAT(RegionSpans(Mask{2, 2, {0, 0, 0, 0}}, 2, 2).spans(), IsEmpty());
}

TEST(RegionSpansTest, EmptyImage_HasNoPixels) {
  EXPECT_THAT(RegionSpans(Box{0, 0, 5, 5}, 0, 0).spans(), IsEmpty());
  EXPECT_THAT(RegionSpans(Line{0, 0, 5, 5}, 0, 5).spans(), IsEmpty());
  EXPECT_THAT(RegionSpans(Polygon{{{0, 0}, {5, 5}, {0, 5}}}, 5, 0).spans(), IsEmpty());
}

TEST(RegionSpansTest, CoordinatesOfAnySize_CoverTheImageOrNot) {
  const std::string full = "###\n###\n";
  const std::string empty = "...\n...\n";
  EXPECT_EQ(draw(Spot{kMin, kMin, kMax}, 3, 2), empty);  // it ends at pixel -1
  EXPECT_EQ(draw(Spot{kMax, kMax, kMax}, 3, 2), full);
  EXPECT_EQ(draw(Box{kMin, kMin, kMax, kMax}, 3, 2), empty);
  EXPECT_EQ(draw(Box{-1, -1, kMax, kMax}, 3, 2), full);
  EXPECT_EQ(draw(Box{kMax, kMax, kMax, kMax}, 3, 2), empty);
  EXPECT_EQ(draw(Ellipse{0, 0, kMax, kMax}, 3, 2), full);
  EXPECT_EQ(draw(Ellipse{kMin, 0, kMax, kMax}, 3, 2), empty);
  EXPECT_EQ(draw(Ellipse{kMax, 0, kMax, kMax}, 3, 2), "###\n.##\n");  // of its tip, one pixel is in row 0 only
  EXPECT_EQ(draw(Line{kMin, kMin, kMax, kMax}, 3, 2), "#..\n.#.\n");
  EXPECT_EQ(draw(Line{kMax, 1, kMin, 1}, 3, 2), "...\n###\n");
  EXPECT_EQ(draw(Polygon{{{kMin, kMin}, {kMax, kMin}, {kMax, kMax}, {kMin, kMax}}}, 3, 2), full);
  EXPECT_EQ(draw(Polygon{{{kMin, kMin}, {kMax, kMax}, {kMin, kMax}}}, 3, 2), "#..\n##.\n");
}

std::string refusal(const Region& region, int width, int height) {
  try {
    const RegionSpans spans(region, width, height);
  } catch (const std::invalid_argument& problem) {
    return problem.what();
  }
  return "";
}

TEST(RegionSpansTest, RegionThatIsNone_IsRefusedByName) {
  EXPECT_THAT(refusal(Spot{0, 0, -1}, 3, 2), HasSubstr("radius of a spot is at least 0, not -1"));
  EXPECT_THAT(refusal(Box{0, 0, 0, 1}, 3, 2), HasSubstr("width of a box is at least 1, not 0"));
  EXPECT_THAT(refusal(Box{0, 0, 1, -7}, 3, 2), HasSubstr("height of a box is at least 1, not -7"));
  EXPECT_THAT(refusal(Ellipse{0, 0, -1, 1}, 3, 2), HasSubstr("horizontal radius"));
  EXPECT_THAT(refusal(Ellipse{0, 0, 1, -1}, 3, 2), HasSubstr("vertical radius"));
  EXPECT_THAT(refusal(Polygon{{{0, 0}, {1, 1}}}, 3, 2), HasSubstr("at least 3 corners, not 2"));
  EXPECT_THAT(refusal(Mask{}, 3, 2), HasSubstr("width of a mask"));
  EXPECT_THAT(refusal(Mask{3, 0, {}}, 3, 2), HasSubstr("height of a mask"));
  EXPECT_THAT(refusal(Mask{3, 2, {1, 1, 1, 1, 1}}, 3, 2), HasSubstr("has 6 bytes, not 5"));
  EXPECT_THAT(refusal(Mask{2, 3, {1, 1, 1, 1, 1, 1}}, 3, 2), HasSubstr("does not fit an image of 3 by 2"));
  EXPECT_THAT(refusal(Spot{}, -1, 2), HasSubstr("cannot be negative"));
}

}  // namespace
