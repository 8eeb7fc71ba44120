// Functions of the core with rules of their own: selectors, gaps in a range, several words, radiometry.
#include <gtest/gtest.h>

#include "CoreBench.h"

namespace {

using core_test::Bytes;
using core_test::CoreBench;
using core_test::wordBytes;

constexpr uint8_t kOk = 0x00;
constexpr uint8_t kRange = 0x03;
constexpr uint8_t kByteCount = 0x09;
constexpr uint8_t kNotEnabled = 0x0A;

TEST(FunctionRules, UnknownSelectors_AreOutOfRange) {
  CoreBench bench;
  const simulator::CoreSettings before = bench.core.settings();
  const std::vector<std::pair<uint8_t, Bytes>> requests = {
      {18, {0x00, 0x00}},
      {18, {0x0A, 0x00}},
      {18, {0x02, 0x01}},
      {32, {0x00, 0x01}},
      {32, {0x01, 0x00}},
      {142, {0x00, 0x20}},
      {142, {0x01, 0x10}},
      {229, {0x01, 0x03}},
      {229, {0x00, 0x00}},
      {142, {0x00, 0x20, 0x00, 0x01}},
      {229, {0x01, 0x06, 0x12, 0x34}},
  };
  for (const auto& [code, payload] : requests) EXPECT_EQ(bench.statusOf(code, payload), kRange) << unsigned{code};
  EXPECT_TRUE(bench.core.settings() == before);
}

TEST(FunctionRules, TestPatterns2And7_DoNotExist) {
  CoreBench bench;
  for (uint16_t value = 0; value <= 8; ++value) {
    EXPECT_EQ(bench.statusOf(37, wordBytes(value)), value == 2 || value == 7 ? kRange : kOk) << value;
  }
}

TEST(FunctionRules, ByteValuesAboveAByte_AreOutOfRange) {
  CoreBench bench;
  EXPECT_EQ(bench.statusOf(11, {0x01, 0x01}), kRange);
  EXPECT_EQ(bench.word(11), 1);
}

class PerGain : public ::testing::TestWithParam<std::pair<uint8_t, uint16_t>> {};

TEST_P(PerGain, OneWord_SetsBothGainsAndTwoSetEach) {
  const auto [code, maximum] = GetParam();
  CoreBench bench;
  EXPECT_EQ(bench.ask(code, {0x00, 0x05}).payload, (Bytes{0x00, 0x05}));
  EXPECT_EQ(bench.ask(code).payload, (Bytes{0x00, 0x05, 0x00, 0x05}));
  EXPECT_EQ(bench.ask(code, {0x00, 0x07, 0x00, 0x03}).payload, (Bytes{0x00, 0x07, 0x00, 0x03}));
  EXPECT_EQ(bench.ask(code).payload, (Bytes{0x00, 0x07, 0x00, 0x03}));
  EXPECT_EQ(bench.statusOf(code, wordBytes(maximum)), kOk);
}

TEST_P(PerGain, BeyondTheBound_EitherWordIsRefused) {
  const auto [code, maximum] = GetParam();
  CoreBench bench;
  const Bytes before = bench.ask(code).payload;
  const Bytes beyond = wordBytes(static_cast<uint16_t>(maximum + 1));
  EXPECT_EQ(bench.statusOf(code, beyond), kRange);
  EXPECT_EQ(bench.statusOf(code, {0, 1, beyond[0], beyond[1]}), kRange);
  EXPECT_EQ(bench.statusOf(code, {beyond[0], beyond[1], 0, 1}), kRange);
  EXPECT_EQ(bench.ask(code).payload, before);
}

INSTANTIATE_TEST_SUITE_P(FunctionRules, PerGain,
                         ::testing::Values(std::pair<uint8_t, uint16_t>(13, 30000),
                                           std::pair<uint8_t, uint16_t>(14, 10)));

TEST(FunctionRules, Isotherms_KeepAllSixBytesAndCheckTheUnit) {
  CoreBench bench;
  const Bytes absolute{0x00, 0xF6, 0xFF, 0x00, 0x12, 0x34};
  EXPECT_EQ(bench.ask(35, absolute).payload, absolute);
  EXPECT_EQ(bench.ask(35).payload, absolute);
  const Bytes relative{0x80, 0x01, 0x00, 0x02, 0x00, 0x03};
  EXPECT_EQ(bench.statusOf(35, relative), kOk);
  EXPECT_EQ(bench.statusOf(35, {0x81, 0x01, 0x00, 0x02, 0x00, 0x03}), kRange);
  EXPECT_EQ(bench.statusOf(35, {0x40, 0x01, 0x00, 0x02, 0x00, 0x03}), kRange);
  EXPECT_EQ(bench.ask(35).payload, relative);
}

TEST(FunctionRules, RadiometryOnAPlainCore_IsNotEnabled) {
  CoreBench bench(CoreBench::plainOptions());
  for (const Bytes& payload : {Bytes{0x00, 0x10}, Bytes{0x00, 0x40, 0x00, 0x01}, Bytes{0x00, 0x77}}) {
    EXPECT_EQ(bench.statusOf(142, payload), kNotEnabled);
  }
  EXPECT_EQ(bench.statusOf(229, {0x01, 0x00}), kNotEnabled);
  EXPECT_EQ(bench.statusOf(229, {0x01, 0x00, 0x20, 0x00}), kNotEnabled);
  EXPECT_EQ(bench.statusOf(229), kByteCount) << "a length that no core takes is wrong on every core";
  EXPECT_EQ(bench.statusOf(11), kOk);
}

}  // namespace
