// Statistics of raw values against the plain way to compute them.
#include "apps/keocam/frames/RawStatistics.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace keocam::cli {
namespace {

RawStatistics plainly(const std::vector<uint16_t>& values) {
  RawStatistics result;
  for (const uint16_t value : values) {
    ++result.pixels;
    result.sum_counts += value;
    result.min_counts = std::min(result.min_counts, value);
    result.max_counts = std::max(result.max_counts, value);
  }
  return result;
}

std::vector<uint8_t> littleEndian(const std::vector<uint16_t>& values) {
  std::vector<uint8_t> bytes;
  for (const uint16_t value : values) {
    bytes.push_back(static_cast<uint8_t>(value & 0xffU));
    bytes.push_back(static_cast<uint8_t>(value >> 8U));
  }
  return bytes;
}

void expectEqual(const RawStatistics& actual, const RawStatistics& expected) {
  EXPECT_EQ(actual.pixels, expected.pixels);
  EXPECT_EQ(actual.sum_counts, expected.sum_counts);
  EXPECT_EQ(actual.min_counts, expected.min_counts);
  EXPECT_EQ(actual.max_counts, expected.max_counts);
}

TEST(RawStatistics, Words_AnyCount_EqualsThePlainSum) {
  std::mt19937 random(1);
  std::uniform_int_distribution<unsigned int> anyValue(0, 65535);
  for (const std::size_t count : {0U, 1U, 2U, 31U, 32U, 33U, 63U, 64U, 65U, 1001U, 336U * 256U}) {
    std::vector<uint16_t> values(count);
    for (uint16_t& value : values) value = static_cast<uint16_t>(anyValue(random));
    SCOPED_TRACE(count);
    expectEqual(statisticsOfWords(littleEndian(values).data(), count), plainly(values));
  }
}

TEST(RawStatistics, Bytes_AnyCount_EqualsThePlainSum) {
  std::mt19937 random(2);
  std::uniform_int_distribution<unsigned int> anyValue(3, 250);
  for (const std::size_t count : {1U, 32U, 33U, 999U}) {
    std::vector<uint8_t> bytes(count);
    for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(anyValue(random));
    SCOPED_TRACE(count);
    expectEqual(statisticsOfBytes(bytes.data(), count), plainly({bytes.begin(), bytes.end()}));
  }
}

TEST(RawStatistics, ExtremesAnywhere_AreFound) {
  for (std::size_t place = 0; place < 70; ++place) {
    std::vector<uint16_t> values(70, 0x8000);
    values[place] = 0;
    values[(place + 1) % 70] = 65535;
    const RawStatistics result = statisticsOfWords(littleEndian(values).data(), values.size());
    EXPECT_EQ(result.min_counts, 0) << place;
    EXPECT_EQ(result.max_counts, 65535) << place;
  }
}

TEST(RawStatistics, LargestValuesInALargeFrame_DoNotOverflow) {
  // So many that 32-bit sums of every 32nd pixel would overflow.
  const std::size_t pixels = std::size_t{32} * 65600 + 5;
  const std::vector<uint8_t> white(pixels * 2, 0xff);
  const RawStatistics result = statisticsOfWords(white.data(), pixels);
  EXPECT_EQ(result.sum_counts, pixels * 65535U);
  EXPECT_DOUBLE_EQ(result.mean_counts(), 65535.0);
}

TEST(RawStatistics, UnalignedData_IsRead) {
  std::vector<uint8_t> bytes = littleEndian({1, 2, 3, 4, 5});
  bytes.insert(bytes.begin(), 0xee);
  EXPECT_EQ(statisticsOfWords(bytes.data() + 1, 5).sum_counts, 15U);
}

TEST(RawStatistics, Add_OfNothing_ChangesNothing) {
  RawStatistics some{2, 30, 10, 20};
  some.add({});
  expectEqual(some, {2, 30, 10, 20});
  RawStatistics none;
  none.add({2, 30, 10, 20});
  expectEqual(none, {2, 30, 10, 20});
  EXPECT_EQ(RawStatistics{}.mean_counts(), 0.0);
}

}  // namespace
}  // namespace keocam::cli
