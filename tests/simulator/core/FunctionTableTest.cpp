// Every function code of the core as a host meets it: lengths, bounds, factory values.
#include "simulator/core/FunctionTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "CoreBench.h"

namespace {

using core_test::Bytes;
using core_test::CoreBench;
using core_test::wordBytes;

constexpr uint8_t kOk = 0x00;
constexpr uint8_t kRange = 0x03;
constexpr uint8_t kUndefinedFunction = 0x06;
constexpr uint8_t kByteCount = 0x09;

/// What a host knows about a function, written down without the simulator's own table.
struct HostView {
  uint8_t code;
  Bytes get;
  std::size_t answer_bytes;
  bool settable = false;
  Bytes set_key{};
  std::size_t value_bytes = 2;
  int32_t minimum = 0;
  int32_t maximum = 0;
  uint16_t initial = 0;
};

HostView word(uint8_t code, int32_t maximum, uint16_t initial, int32_t minimum = 0) {
  return {code, {}, 2, true, {}, 2, minimum, maximum, initial};
}

HostView selected(uint8_t code, const Bytes& get, const Bytes& set, std::size_t value_bytes, int32_t maximum,
                  uint16_t initial, int32_t minimum = 0) {
  return {code, get, 2, true, set, value_bytes, minimum, maximum, initial};
}

std::vector<HostView> settableWords() {
  return {
      word(10, 3, 2),
      word(11, 2, 1),
      word(15, 3, 0),
      word(16, 29, 0),
      word(17, 3, 0),
      selected(18, {0x02, 0x00}, {0x03}, 1, 2, 0),
      selected(18, {0x04, 0x00}, {0x05}, 1, 1, 1),
      selected(18, {0x08, 0x00}, {0x06}, 1, 3, 0),
      selected(18, {0x09, 0x00}, {0x07}, 1, 1, 0),
      word(19, 5, 0),
      word(20, 255, 32),
      word(21, 16383, 8192),
      word(24, 16383, 0, -16383),
      word(30, 1, 0),
      word(31, 2, 0),
      word(33, 2, 0),
      word(34, 1, 0),
      word(37, 8, 0),
      word(38, 1, 0),
      word(43, 3, 0),
      word(44, 255, 17),
      word(60, 600, 60),
      word(62, 255, 64),
      word(63, 4095, 250),
      word(85, 255, 127),
      word(106, 255, 12),
      word(114, 5, 0),
      selected(142, {0x00, 0x10}, {0x00, 0x10}, 2, 1, 0),
      selected(142, {0x00, 0x40}, {0x00, 0x40}, 2, 1, 0),
      word(226, 255, 0),
      word(227, 0x01FF, 0x0100),
      selected(229, {0x01, 0x00}, {0x01, 0x00}, 2, 8192, 8192, 4096),
      selected(229, {0x01, 0x01}, {0x01, 0x01}, 2, 0xFFFF, 0),
      selected(229, {0x01, 0x02}, {0x01, 0x02}, 2, 0xFFFF, 0),
      selected(229, {0x01, 0x05}, {0x01, 0x05}, 2, 12000, 2200),
      selected(229, {0x01, 0x07}, {0x01, 0x07}, 2, 60000, 2200),
  };
}

/// Those that have more than a word, and those that cannot be set.
std::vector<HostView> otherFunctions() {
  return {{0, {}, 0},
          {1, {}, 0},
          {2, {}, 0},
          {3, {}, 0},
          {4, {}, 8},
          {5, {}, 8},
          {12, {}, 2},
          {13, {}, 4, true, {}, 4},
          {14, {}, 4, true, {}, 4},
          {32, {0x00, 0x00}, 2},
          {32, {0x00, 0x0A}, 2},
          {35, {}, 6, true, {}, 6},
          {42, {}, 2},
          {77, {}, 2},
          {102, {}, 32},
          {213, {0xFF, 0xFF}, 8},
          {214, {0x00, 0x00, 0x00, 0x11}, 8},
          {214, {0x00, 0x01, 0x00, 0x11}, 8}};
}

/// Those of the flash, which have tests of their own.
const std::multiset<unsigned> kMemoryFunctions{210, 211, 212};

Bytes setRequest(const HostView& view, uint16_t value) {
  Bytes payload = view.set_key;
  const Bytes bytes = wordBytes(value);
  payload.insert(payload.end(), view.value_bytes == 1 ? bytes.begin() + 1 : bytes.begin(), bytes.end());
  return payload;
}

std::string parameterName(const ::testing::TestParamInfo<HostView>& parameter) {
  const HostView& view = parameter.param;
  return std::to_string(view.code) + (view.get.empty() ? "" : "_" + std::to_string(view.get[0] * 256 + view.get[1]));
}

class EveryWord : public ::testing::TestWithParam<HostView> {};

TEST_P(EveryWord, Factory_ValueIsAnswered) {
  CoreBench bench;
  const core_test::Answer answer = bench.ask(GetParam().code, GetParam().get);
  EXPECT_TRUE(answer.sound);
  EXPECT_EQ(answer.function, GetParam().code);
  EXPECT_EQ(answer.status, kOk);
  EXPECT_EQ(answer.payload, wordBytes(GetParam().initial));
}

TEST_P(EveryWord, SetAtBothBounds_IsEchoedAndKept) {
  const HostView& view = GetParam();
  CoreBench bench;
  for (const int32_t value : {view.minimum, view.maximum}) {
    const auto wire = static_cast<uint16_t>(value);
    const Bytes payload = setRequest(view, wire);
    const core_test::Answer answer = bench.ask(view.code, payload);
    EXPECT_TRUE(answer.sound);
    EXPECT_EQ(answer.status, kOk) << value;
    EXPECT_EQ(answer.payload, payload) << value;
    EXPECT_EQ(bench.word(view.code, view.get), wire);
  }
}

TEST_P(EveryWord, SetBeyondABound_IsRefusedAndChangesNothing) {
  const HostView& view = GetParam();
  CoreBench bench;
  const simulator::CoreSettings before = bench.core.settings();
  const bool narrow = view.value_bytes == 1;
  for (const int32_t value : {view.minimum - 1, view.maximum + 1}) {
    // What the value's bytes cannot say at all has no bound to be tried.
    if (value > (narrow ? 0xFF : 0xFFFF) || (value < 0 && (narrow || view.maximum == 0xFFFF))) continue;
    EXPECT_EQ(bench.statusOf(view.code, setRequest(view, static_cast<uint16_t>(value))), kRange) << value;
  }
  EXPECT_TRUE(bench.core.settings() == before);
}

TEST_P(EveryWord, OtherLengths_AreByteCountErrorsAndChangeNothing) {
  const HostView& view = GetParam();
  CoreBench bench;
  const simulator::CoreSettings before = bench.core.settings();
  for (std::size_t length = 0; length <= 9; ++length) {
    if (length == view.get.size() || length == view.set_key.size() + view.value_bytes) continue;
    EXPECT_EQ(bench.statusOf(view.code, Bytes(length, 0)), kByteCount) << length;
  }
  EXPECT_TRUE(bench.core.settings() == before);
}

INSTANTIATE_TEST_SUITE_P(FunctionTable, EveryWord, ::testing::ValuesIn(settableWords()), parameterName);

class EveryOther : public ::testing::TestWithParam<HostView> {};

TEST_P(EveryOther, Get_IsAnsweredWithTheRightLength) {
  CoreBench bench;
  const core_test::Answer answer = bench.ask(GetParam().code, GetParam().get);
  EXPECT_TRUE(answer.sound);
  EXPECT_EQ(answer.status, kOk);
  EXPECT_EQ(answer.payload.size(), GetParam().answer_bytes);
}

TEST_P(EveryOther, OtherLengths_AreByteCountErrors) {
  const HostView& view = GetParam();
  CoreBench bench;
  const simulator::CoreSettings before = bench.core.settings();
  for (std::size_t length = 0; length <= 9; ++length) {
    const bool one_word_for_both = view.settable && view.value_bytes == 4 && length == 2;
    if (length == view.get.size() || one_word_for_both || (view.settable && length == view.value_bytes)) continue;
    EXPECT_EQ(bench.statusOf(view.code, Bytes(length, 0)), kByteCount) << length;
  }
  EXPECT_TRUE(bench.core.settings() == before);
}

INSTANTIATE_TEST_SUITE_P(FunctionTable, EveryOther, ::testing::ValuesIn(otherFunctions()), parameterName);

TEST(FunctionTable, HostsList_CoversEveryRow) {
  std::multiset<unsigned> hosts = kMemoryFunctions;
  for (const HostView& view : settableWords()) hosts.insert(view.code);
  for (const HostView& view : otherFunctions()) hosts.insert(view.code);
  std::multiset<unsigned> cores;
  for (const simulator::FunctionRow& row : simulator::kFunctionRows) cores.insert(row.code);
  EXPECT_EQ(hosts, cores);
}

TEST(FunctionTable, EveryOtherCode_IsUndefinedWhateverItsLength) {
  CoreBench bench;
  unsigned tried = 0;
  for (unsigned code = 0; code < 256; ++code) {
    const bool known = std::any_of(simulator::kFunctionRows.begin(), simulator::kFunctionRows.end(),
                                   [code](const simulator::FunctionRow& row) { return row.code == code; });
    if (known) continue;
    ++tried;
    EXPECT_EQ(bench.statusOf(static_cast<uint8_t>(code)), kUndefinedFunction) << code;
    EXPECT_EQ(bench.statusOf(static_cast<uint8_t>(code), {0, 1}), kUndefinedFunction) << code;
  }
  EXPECT_EQ(tried, 256U - 47U);
}

}  // namespace
