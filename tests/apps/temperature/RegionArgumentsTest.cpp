// Regions on the command line, and where they lie in a picture.
#include "apps/keocam/temperature/RegionArguments.h"

#include <limits>

#include "FailureText.h"

namespace keocam::cli {
namespace {

std::vector<PlacedRegion> placedFrom(const std::vector<std::string>& arguments, int width = 64, int height = 48) {
  return placed(regionsIn(arguments), width, height);
}

TEST(RegionArguments, None_AreThePictureAndItsCentre) {
  const auto regions = placedFrom({}, 64, 48);
  ASSERT_EQ(regions.size(), 2U);
  EXPECT_EQ(regions[0].named.name, "picture");
  EXPECT_EQ(regions[0].spans.pixelCount(), 64 * 48);
  EXPECT_EQ(regions[1].named.name, "centre");
  EXPECT_EQ(regions[1].spans.spans(), (std::vector<RowSpan>{{24, 32, 33}}));
  EXPECT_EQ(placedFrom({}, 1, 1)[1].spans.pixelCount(), 1);
}

TEST(RegionArguments, Names_AreGivenOrTheText) {
  const auto regions = regionsIn({"a=spot:1,2", "box:1,2,3,4"});
  ASSERT_EQ(regions.size(), 2U);
  EXPECT_EQ(regions[0].name, "a");
  EXPECT_EQ(regions[1].name, "box:1,2,3,4");
}

TEST(RegionArguments, EverythingWrong_IsToldAtOnce) {
  const std::string text = failureTextOf(ExitStatus::Usage, [] {
    regionsIn({"spot:1", "a=spot:1,1", "a=spot:2,2", "KEOD2001", "\x1b:1"});
  });
  for (const char* const part : {"spot:X,Y", "\"a\" is given twice", "KEOD2001"}) {
    EXPECT_TRUE(mentions(text, part)) << text;
  }
  EXPECT_FALSE(mentions(text, "\x1b")) << text;
}

TEST(RegionArguments, WhollyOutside_IsRefusedWithThePicturesSize) {
  for (const char* const outside : {"spot:64,0", "spot:-1,5", "box:0,48,5,5", "line:-9,-9,-1,-1"}) {
    const std::string text = failureTextOf(ExitStatus::Failure, [&] { placedFrom({outside}); });
    EXPECT_TRUE(mentions(text, "columns 0 to 63 and rows 0 to 47")) << text;
  }
}

TEST(RegionArguments, PartlyOutside_IsNoticedForEveryShape) {
  for (const char* const within :
       {"spot:0,0", "spot:5,5,5", "box:0,0,64,48", "ellipse:10,10,10,10", "line:0,0,63,47", "polygon:0,0,63,0,0,47"}) {
    EXPECT_FALSE(placedFrom({within})[0].cut_off) << within;
  }
  for (const char* const cut : {"spot:5,5,6", "box:1,0,64,48", "box:0,-1,2,2", "ellipse:10,10,11,5", "line:0,0,64,47",
                                "polygon:0,0,63,0,0,48", "spot:63,47,1"}) {
    EXPECT_TRUE(placedFrom({cut})[0].cut_off) << cut;
  }
}

TEST(RegionArguments, LargestCoordinates_DoNotOverflow) {
  const std::string most = std::to_string(std::numeric_limits<int>::max());
  EXPECT_TRUE(placedFrom({"box:0,0," + most + "," + most})[0].cut_off);
  EXPECT_TRUE(placedFrom({"spot:5,5," + most})[0].cut_off);
}

}  // namespace
}  // namespace keocam::cli
