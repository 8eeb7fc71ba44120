// Each fault of the core, on its answers byte by byte.
#include "simulator/core/CoreFaults.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "FlashBench.h"

namespace {

using namespace simulator;
using core_test::CoreBench;
using core_test::kMs;
using core_test::request;
using core_test::wordBytes;

constexpr uint8_t kContrast = 20;

class Faulty : public ::testing::Test {
 protected:
  Bytes answerToGet() { return bench.send(request(kContrast)); }
  void set(CoreFault fault, uint32_t value, uint32_t frames = CoreFaultSetting::kForGood) {
    bench.core.setFault(fault, value, frames);
  }
  CoreBench bench;
  const Bytes whole = answerToGet();
};

TEST_F(Faulty, NoAnswer_CarriesTheRequestOutInSilence) {
  set(CoreFault::NoAnswer, 1000);
  EXPECT_TRUE(bench.send(request(kContrast, wordBytes(77))).empty());
  EXPECT_EQ(bench.core.word(kContrast), 77);
  EXPECT_EQ(bench.core.log().back().status, CoreStatus::Ok);
  EXPECT_TRUE(bench.core.log().back().sent.empty());
}

TEST_F(Faulty, LateAnswer_IsDelayed) {
  set(CoreFault::LateAnswer, 250);
  EXPECT_EQ(answerToGet(), whole);
  EXPECT_EQ(bench.delay_ns, 251 * kMs);
}

TEST_F(Faulty, CutAnswer_LacksItsEnd) {
  set(CoreFault::CutAnswer, 3);
  EXPECT_EQ(answerToGet(), Bytes(whole.begin(), whole.end() - 3));
  set(CoreFault::CutAnswer, 100);
  EXPECT_TRUE(answerToGet().empty());
}

TEST_F(Faulty, WrongCrc_DamagesNothingElse) {
  set(CoreFault::WrongCrc, 1000);
  const Bytes answer = answerToGet();
  ASSERT_EQ(answer.size(), whole.size());
  EXPECT_FALSE(core_test::parse(answer).sound);
  EXPECT_TRUE(std::equal(whole.begin(), whole.end() - 1, answer.begin()));
}

TEST_F(Faulty, WrongStatus_ComesInASoundFrameAfterTheRequestWasCarriedOut) {
  set(CoreFault::WrongStatus, 0x5A);
  const core_test::Answer answer = bench.ask(kContrast, wordBytes(78));
  EXPECT_TRUE(answer.sound);
  EXPECT_EQ(answer.status, 0x5A);
  EXPECT_EQ(answer.payload, wordBytes(78));
  EXPECT_EQ(bench.core.word(kContrast), 78);
}

TEST_F(Faulty, LossIn_KeepsRequestsFromTheCore) {
  set(CoreFault::LossIn, 1000);
  EXPECT_TRUE(bench.send(request(kContrast, wordBytes(79))).empty());
  EXPECT_NE(bench.core.word(kContrast), 79);
}

TEST_F(Faulty, LossOut_ThinsTheAnswer) {
  set(CoreFault::LossOut, 1000);
  EXPECT_TRUE(answerToGet().empty());
  set(CoreFault::LossOut, 500);
  std::size_t bytes = 0;
  for (int i = 0; i < 100; ++i) bytes += answerToGet().size();
  EXPECT_NEAR(static_cast<double>(bytes), 600.0, 120.0);
}

TEST_F(Faulty, Noise_ComesBeforeTheAnswer) {
  set(CoreFault::Noise, 5);
  const Bytes answer = answerToGet();
  ASSERT_EQ(answer.size(), whole.size() + 5);
  EXPECT_TRUE(std::equal(whole.begin(), whole.end(), answer.begin() + 5));
}

TEST_F(Faulty, LimitedFrames_EndTheFaultAfterThem) {
  for (const CoreFault fault : {CoreFault::NoAnswer, CoreFault::WrongCrc, CoreFault::LossIn, CoreFault::LossOut}) {
    set(fault, 1000, 2);
    EXPECT_NE(answerToGet(), whole);
    EXPECT_NE(answerToGet(), whole);
    EXPECT_EQ(answerToGet(), whole);
  }
  for (const CoreFault fault : {CoreFault::CutAnswer, CoreFault::WrongStatus, CoreFault::Noise}) {
    set(fault, 1, 1);
    EXPECT_NE(answerToGet(), whole);
    EXPECT_EQ(answerToGet(), whole);
  }
}

TEST_F(Faulty, Deaf_NeitherCarriesOutNorAnswers) {
  set(CoreFault::Deaf, 1000, 1);
  EXPECT_TRUE(bench.send(request(kContrast, wordBytes(80))).empty());
  EXPECT_NE(bench.core.word(kContrast), 80);
  EXPECT_EQ(bench.core.log().back().verdict, Verdict::Frame);
  EXPECT_FALSE(bench.core.log().back().status.has_value());
  EXPECT_EQ(answerToGet(), whole);
}

TEST_F(Faulty, After_LetsFramesPassBefore) {
  for (const CoreFault fault : {CoreFault::NoAnswer, CoreFault::WrongCrc, CoreFault::LossIn, CoreFault::Deaf}) {
    bench.core.setFault(fault, {1000, 2, 3});
    for (int frame = 1; frame <= 6; ++frame) {
      EXPECT_EQ(answerToGet() == whole, frame <= 3 || frame == 6)
          << "fault " << static_cast<int>(fault) << " frame " << frame;
    }
  }
}

TEST_F(Faulty, AfterFunction_CountsThatFunctionOnlyAndThenStrikesAll) {
  bench.core.setFault(CoreFault::NoAnswer, {1000, CoreFaultSetting::kForGood, 2, uint8_t{11}});
  for (int i = 0; i < 5; ++i) EXPECT_EQ(answerToGet(), whole);
  EXPECT_FALSE(bench.send(request(11)).empty());
  EXPECT_EQ(answerToGet(), whole);
  EXPECT_FALSE(bench.send(request(11)).empty());
  EXPECT_TRUE(answerToGet().empty());
  EXPECT_TRUE(bench.send(request(11)).empty());
}

class CutTransfer : public ::testing::TestWithParam<uint32_t> {};

TEST_P(CutTransfer, DeafAfterSomeWrites_LeavesExactlyThese) {
  const uint32_t writes = GetParam();
  core_test::FlashBench bench(flashGeometryFor(1000, 256));
  bench.core.setFault(CoreFault::Deaf, {1000, CoreFaultSetting::kForGood, writes, core_test::kWriteMemory});
  const Bytes wanted = core_test::table(1000);
  EXPECT_EQ(bench.transfer(0, wanted), writes == 8);
  EXPECT_EQ(bench.core.flashCounters().writes, writes);
  Bytes expected(1000, 0xFF);
  std::copy_n(wanted.begin(), std::min<std::size_t>(1000, std::size_t{writes} * 128), expected.begin());
  EXPECT_EQ(bench.core.lensTable(0), expected);
  EXPECT_TRUE(bench.send(request(kContrast)).empty()) << "silent to everything";
  bench.core.clearFaults();
  EXPECT_TRUE(bench.transfer(0, wanted)) << "a second attempt mends it";
  EXPECT_EQ(bench.core.lensTable(0), wanted);
}

INSTANTIATE_TEST_SUITE_P(Faulty, CutTransfer, ::testing::Values(0U, 1U, 7U, 8U));

TEST_F(Faulty, LastAnswerOfATransferLost_TheTableIsThere) {
  core_test::FlashBench flash;
  flash.core.setFault(CoreFault::NoAnswer, {1000, 1, 0, core_test::kWriteMemory});
  EXPECT_EQ(flash.ask(core_test::kWriteMemory, core_test::at(0x1040, {1, 2})).status, 0xFF);
  EXPECT_EQ(flash.read(0x1040, 2), (Bytes{1, 2}));
}

TEST_F(Faulty, Numbers_AreValueFramesAndFramesBefore) {
  const CoreFaultKnob& knob = coreFaultKnobs()[static_cast<std::size_t>(CoreFault::NoAnswer)];
  EXPECT_EQ(coreFaultOf(knob, {7})->frames, CoreFaultSetting::kForGood);
  EXPECT_EQ(coreFaultOf(knob, {7, 0, 9})->frames, CoreFaultSetting::kForGood);
  const auto fault = coreFaultOf(knob, {7, 8, 9});
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->value, 7U);
  EXPECT_EQ(fault->frames, 8U);
  EXPECT_EQ(fault->after, 9U);
  EXPECT_FALSE(coreFaultOf(knob, {}));
  EXPECT_FALSE(coreFaultOf(knob, {1001}));
  EXPECT_FALSE(coreFaultOf(knob, {1, 2, 3, 4}));
}

TEST_F(Faulty, Clear_EndsAllFaults) {
  for (std::size_t i = 0; i < kCoreFaultCount; ++i) set(static_cast<CoreFault>(i), 1);
  bench.core.clearFaults();
  EXPECT_EQ(answerToGet(), whole);
  EXPECT_EQ(bench.delay_ns, 1 * kMs);
}

TEST_F(Faulty, FromTheStart_AreAnOption) {
  CoreOptions options = CoreBench::quietOptions();
  options.faults[static_cast<std::size_t>(CoreFault::NoAnswer)] = {1000, 1};
  CoreBench other(options);
  EXPECT_TRUE(other.send(request(kContrast)).empty());
  EXPECT_EQ(other.send(request(kContrast)), whole);
}

TEST_F(Faulty, Knobs_HaveNamesAndBounds) {
  for (const CoreFaultKnob& knob : coreFaultKnobs()) {
    EXPECT_EQ(knob.name.substr(0, 5), "core-");
    EXPECT_GT(knob.maximum, 0U);
    EXPECT_FALSE(knob.help.empty());
  }
}

}  // namespace
