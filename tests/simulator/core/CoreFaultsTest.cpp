// Each fault of the core, on its answers byte by byte.
#include "simulator/core/CoreFaults.h"

#include <gtest/gtest.h>

#include "CoreBench.h"

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
