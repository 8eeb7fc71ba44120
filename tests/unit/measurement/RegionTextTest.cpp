// Regions as text: each form, and what is said about one that is none.
#include "measurement/RegionText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using keocam::NamedRegion;
using keocam::parseRegion;
using testing::AllOf;
using testing::HasSubstr;

/// The region read, as text with its name; or what is said instead.
std::string readBack(std::string_view text) {
  const auto parsed = parseRegion(text);
  if (const auto* const problem = std::get_if<std::string>(&parsed)) return *problem;
  const NamedRegion& named = std::get<NamedRegion>(parsed);
  return named.name + "|" + std::to_string(named.region.index()) + "|" + keocam::textOf(named.region);
}

TEST(RegionTextTest, EveryShape_IsRead) {
  EXPECT_EQ(readBack("spot:320,256"), "|0|spot:320,256");
  EXPECT_EQ(readBack("spot:320,256,2"), "|0|spot:320,256,2");
  EXPECT_EQ(readBack("box:-1,2,30,40"), "|1|box:-1,2,30,40");
  EXPECT_EQ(readBack("ellipse:10,20,3,4"), "|2|ellipse:10,20,3,4");
  EXPECT_EQ(readBack("polygon:0,0,10,0,5,8"), "|3|polygon:0,0,10,0,5,8");
  EXPECT_EQ(readBack("line:1,2,3,4"), "|4|line:1,2,3,4");
}

TEST(RegionTextTest, Numbers_AreInTheOrderOfTheForm) {
  const auto parsed = parseRegion("ellipse:1,2,3,4");
  const auto& ellipse = std::get<keocam::Ellipse>(std::get<NamedRegion>(parsed).region);
  EXPECT_EQ(ellipse.center_x, 1);
  EXPECT_EQ(ellipse.center_y, 2);
  EXPECT_EQ(ellipse.radius_x, 3);
  EXPECT_EQ(ellipse.radius_y, 4);
  const auto box = std::get<keocam::Box>(std::get<NamedRegion>(parseRegion("box:1,2,3,4")).region);
  EXPECT_EQ(box.x, 1);
  EXPECT_EQ(box.y, 2);
  EXPECT_EQ(box.width, 3);
  EXPECT_EQ(box.height, 4);
}

TEST(RegionTextTest, Name_ComesBeforeTheShape) {
  EXPECT_EQ(readBack("bearing=box:1,2,3,4"), "bearing|1|box:1,2,3,4");
  EXPECT_EQ(readBack("Pump_2.hot-end=spot:1,2"), "Pump_2.hot-end|0|spot:1,2");
}

TEST(RegionTextTest, Mask_HasNoForm) {
  EXPECT_EQ(keocam::textOf(keocam::Mask{2, 1, {0, 1}}), "mask:2x1");
  EXPECT_THAT(readBack("mask:2x1"), HasSubstr("\"mask\" is not a shape."));
}

TEST(RegionTextTest, NumbersOfAnInt_AreTheLargest) {
  EXPECT_EQ(readBack("line:-2147483648,2147483647,0,0"), "|4|line:-2147483648,2147483647,0,0");
  EXPECT_THAT(readBack("line:-2147483649,0,0,0"), HasSubstr("\"-2147483649\" is not a whole number"));
  EXPECT_THAT(readBack("spot:1,99999999999999999999"), HasSubstr("\"99999999999999999999\" is not a whole number"));
}

TEST(RegionTextTest, WhatIsNone_IsRefusedWithTheRightForm) {
  struct Case {
    const char* text;
    const char* wrong;
    const char* right;
  };
  const Case cases[] = {
      {"", "No shape is given", "spot:X,Y[,RADIUS], box:X,Y,WIDTH,HEIGHT, ellipse:"},
      {"name=", "No shape is given", "box:X,Y,WIDTH,HEIGHT"},
      {"circle:1,2,3", "\"circle\" is not a shape", "ellipse:X,Y,RADIUS_X,RADIUS_Y"},
      {"Box:1,2,3,4", "\"Box\" is not a shape", "box:X,Y,WIDTH,HEIGHT"},
      {"box", "\"box\" needs numbers", "box:X,Y,WIDTH,HEIGHT"},
      {"box:", "\"\" is not a whole number", "box:X,Y,WIDTH,HEIGHT"},
      {"box:1,2,3", "\"box\" takes 4 numbers, not 3", "box:X,Y,WIDTH,HEIGHT"},
      {"box:1,2,3,4,5", "not 5", "box:X,Y,WIDTH,HEIGHT"},
      {"box:1,2,3,", "\"\" is not a whole number", "box:X,Y,WIDTH,HEIGHT"},
      {"box:1,2,,4", "\"\" is not a whole number", "box:X,Y,WIDTH,HEIGHT"},
      {"box:1,2,3,4.5", "\"4.5\" is not a whole number", "box:X,Y,WIDTH,HEIGHT"},
      {"box:1, 2,3,4", "\" 2\" is not a whole number", "box:X,Y,WIDTH,HEIGHT"},
      {"box:1,2,0,4", "width of a box is at least 1, not 0", "box:X,Y,WIDTH,HEIGHT"},
      {"spot:1", "takes 2 or 3 numbers, not 1", "spot:X,Y[,RADIUS]"},
      {"spot:1,2,-3", "radius of a spot is at least 0", "spot:X,Y[,RADIUS]"},
      {"ellipse:1,2,3,-4", "vertical radius", "ellipse:X,Y,RADIUS_X,RADIUS_Y"},
      {"line:1,2,3", "takes 4 numbers, not 3", "line:X1,Y1,X2,Y2"},
      {"polygon:1,2,3,4", "6 or more numbers, two for each corner, not 4", "polygon:X1,Y1,X2,Y2,X3,Y3[,...]"},
      {"polygon:1,2,3,4,5,6,7", "not 7", "polygon:X1,Y1,X2,Y2,X3,Y3[,...]"},
      {"=box:1,2,3,4", "no name before the '='", "begins with its shape"},
      {"two words=box:1,2,3,4", "\"two words\" cannot name a region", "letters, digits"},
      {"a:b=box:1,2,3,4", "\"a:b\" cannot name a region", "letters, digits"},
      {"a=b=box:1,2,3,4", "\"b=box\" is not a shape", "box:X,Y,WIDTH,HEIGHT"},
  };
  for (const Case& refused : cases) {
    EXPECT_THAT(readBack(refused.text), AllOf(HasSubstr(refused.wrong), HasSubstr(refused.right))) << refused.text;
  }
}

}  // namespace
