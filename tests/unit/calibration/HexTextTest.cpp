#include "calibration/HexText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <vector>

namespace {

TEST(HexText, EveryPair_IsWhatStrtolMakesOfIt) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const char pair[3] = {static_cast<char>(first), static_cast<char>(second), '\0'};
      uint8_t byte = 0x5A;
      keocam::decodeHex(std::string_view(pair, 2), &byte);
      ASSERT_EQ(byte, static_cast<uint8_t>(std::strtol(pair, nullptr, 16))) << first << " " << second;
    }
  }
}

TEST(HexText, OddLength_LastCharacterCountsForNothing) {
  std::vector<uint8_t> bytes(2, 0x5A);
  EXPECT_EQ(keocam::hexBytes("12F"), 1u);
  keocam::decodeHex("12F", bytes.data());
  EXPECT_EQ(bytes, (std::vector<uint8_t>{0x12, 0x5A}));
  EXPECT_EQ(keocam::hexBytes(""), 0u);
  EXPECT_EQ(keocam::hexBytes("1"), 0u);
}

TEST(HexText, Float_LowestByteFirst) {
  EXPECT_EQ(keocam::decodeHexFloat("0000803F"), 1.0F);
  EXPECT_EQ(keocam::decodeHexFloat("000020c1"), -10.0F);
  EXPECT_TRUE(std::isnan(keocam::decodeHexFloat("0000C07F")));
  EXPECT_TRUE(std::isinf(keocam::decodeHexFloat("0000807F")));
}

}  // namespace
