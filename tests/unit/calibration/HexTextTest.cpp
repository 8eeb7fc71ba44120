#include "calibration/HexText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
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

// Long runs of digits take another way than single pairs; a stray character anywhere in them changes nothing else.
TEST(HexText, LongText_WithAnyCharacterAnywhere_IsItsPairs) {
  std::string digits;
  for (int i = 0; i < 700; ++i) digits += "0123456789abcdefABCDEF"[i * 7 % 22];
  for (std::size_t length : {126U, 127U, 128U, 129U, 130U, 255U, 256U, 257U, 258U, 700U}) {
    for (const char stray : {'0', 'g', '/', ':', '@', 'G', '`', ' ', '-', '\xFF', '\0'}) {
      for (std::size_t place = 0; place < length; place += 13) {
        std::string text = digits.substr(0, length);
        text[place] = stray;
        std::vector<uint8_t> decoded(keocam::hexBytes(text) + 1, 0x5A);
        keocam::decodeHex(text, decoded.data());
        std::vector<uint8_t> pairs(decoded.size(), 0x5A);
        for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
          pairs[i / 2] = static_cast<uint8_t>(std::strtol(text.substr(i, 2).c_str(), nullptr, 16));
        }
        ASSERT_EQ(decoded, pairs) << length << " " << stray << " " << place;
      }
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
