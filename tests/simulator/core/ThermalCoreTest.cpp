// The core as a whole: error statuses on the wire, identity, commands, log, and lines that it does not hear.
#include "simulator/core/ThermalCore.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "CoreBench.h"

namespace {

using core_test::Bytes;
using core_test::CoreBench;
using core_test::kMs;
using core_test::kSecond;
using core_test::request;
using core_test::wordBytes;
using simulator::Verdict;

constexpr uint8_t kSetDefaults = 1;
constexpr uint8_t kReset = 2;
constexpr uint8_t kFactoryDefaults = 3;
constexpr uint8_t kContrast = 20;
constexpr uint16_t kFactoryContrast = 32;

TEST(ThermalCore, Answers_AreByteForByteWhatTheProtocolSays) {
  CoreBench bench;
  EXPECT_EQ(bench.send({0x6E, 0x00, 0x00, 0x0B, 0x00, 0x00, 0x2F, 0x4A, 0x00, 0x00}),
            (Bytes{0x6E, 0x00, 0x00, 0x0B, 0x00, 0x02, 0x0F, 0x08, 0x00, 0x01, 0x10, 0x21}));
  // A value out of range is refused with an empty answer.
  EXPECT_EQ(bench.send(request(11, {0x00, 0x03})), (Bytes{0x6E, 0x03, 0x00, 0x0B, 0x00, 0x00, 0xC1, 0x98, 0x00, 0x00}));
}

TEST(ThermalCore, DamagedFrames_AreAnsweredByTheirStatus) {
  CoreBench bench;
  Bytes bad_payload = request(kContrast, {0x00, 0x40});
  bad_payload[9] = 0x41;
  EXPECT_EQ(core_test::parse(bench.send(bad_payload)).status, 0x04);
  Bytes bad_header = request(kContrast, {0x00, 0x40});
  bad_header[6] = static_cast<uint8_t>(bad_header[6] ^ 1U);
  EXPECT_EQ(core_test::parse(bench.send(bad_header)).status, 0x04);
  EXPECT_EQ(bench.core.word(kContrast), kFactoryContrast);
}

TEST(ThermalCore, SeveralFlaws_TheFirstOneCounts) {
  CoreBench bench;
  Bytes undefined = request(200, {0, 1});
  undefined.back() = static_cast<uint8_t>(undefined.back() ^ 1U);
  EXPECT_EQ(core_test::parse(bench.send(undefined)).status, 0x06) << "function before check sum";
  Bytes length = request(kContrast, {0, 1, 2});
  length.back() = static_cast<uint8_t>(length.back() ^ 1U);
  EXPECT_EQ(core_test::parse(bench.send(length)).status, 0x09) << "byte count before check sum";
  Bytes range = request(kContrast, {0x7F, 0xFF});
  range.back() = static_cast<uint8_t>(range.back() ^ 1U);
  EXPECT_EQ(core_test::parse(bench.send(range)).status, 0x04) << "check sum before range";
}

TEST(ThermalCore, OtherProcessAndTooLongFrames_AreAnswered) {
  CoreBench bench;
  Bytes process{0x6D, 0x00, 0x00, kContrast, 0x00, 0x00};
  simulator::appendU16(process, core_test::crcOf(process));
  simulator::appendU16(process, core_test::crcOf(process));
  const core_test::Answer other = core_test::parse(bench.send(process));
  EXPECT_TRUE(other.sound) << "the answer itself has the right process code";
  EXPECT_EQ(other.status, 0x05);
  Bytes header = request(kContrast, Bytes(300, 0));
  header.resize(8);
  EXPECT_EQ(core_test::parse(bench.send(header)).status, 0x09);
}

TEST(ThermalCore, NoiseAndPartialFrames_AreNotAnswered) {
  CoreBench bench;
  EXPECT_TRUE(bench.send({0x01, 0x02, 0x03}).empty());
  EXPECT_TRUE(bench.send({0x6E, 0x00, 0x00}).empty());
  bench.pass(kSecond);
  EXPECT_EQ(bench.word(kContrast), kFactoryContrast) << "the partial frame is forgotten";
}

TEST(ThermalCore, TwoRequestsAtOnce_GetTwoAnswers) {
  CoreBench bench;
  Bytes both = request(kContrast);
  const Bytes second = request(11);
  both.insert(both.end(), second.begin(), second.end());
  const Bytes answers = bench.send(both);
  ASSERT_EQ(answers.size(), 24U);
  EXPECT_EQ(core_test::parse(Bytes(answers.begin(), answers.begin() + 12)).word(), kFactoryContrast);
  EXPECT_EQ(core_test::parse(Bytes(answers.begin() + 12, answers.end())).word(), 1);
}

TEST(ThermalCore, Identity_IsAnsweredAsGiven) {
  simulator::CoreOptions options = CoreBench::quietOptions();
  options.identity = {"46336001H-FPNLX", 0x01020304, 0xA1A2A3A4, {1, 2, 3, 0x0405}};
  CoreBench bench(options);
  EXPECT_EQ(bench.ask(4).payload, (Bytes{1, 2, 3, 4, 0xA1, 0xA2, 0xA3, 0xA4}));
  EXPECT_EQ(bench.ask(5).payload, (Bytes{0, 1, 0, 2, 0, 3, 4, 5}));
  const Bytes part = bench.ask(102).payload;
  EXPECT_EQ(std::string(part.begin(), part.end()), "46336001H-FPNLX^^^^^^^^^^^^^^^^^");
  EXPECT_FALSE(bench.core.radiometric());
}

TEST(ThermalCore, PartNumber_SaysWhetherItIsRadiometricAndFast) {
  simulator::CoreIdentity identity;
  EXPECT_TRUE(simulator::isRadiometric(identity));
  EXPECT_TRUE(simulator::isFast(identity));
  identity.part_number = "46640019H-SINLX";
  EXPECT_TRUE(simulator::isRadiometric(identity));
  EXPECT_FALSE(simulator::isFast(identity));
  identity.part_number = "4664";
  EXPECT_FALSE(simulator::isRadiometric(identity));
}

TEST(ThermalCore, PartNumberThatDoesNotServe_Throws) {
  for (const std::string& part_number :
       {std::string(), std::string(33, 'A'), std::string("A^B"), std::string("A\nB")}) {
    simulator::CoreOptions options;
    options.identity.part_number = part_number;
    EXPECT_THROW(simulator::ThermalCore core(options), std::invalid_argument) << part_number;
  }
}

TEST(ThermalCore, SetDefaults_MakesPresentSettingsThoseOfPowerOn) {
  CoreBench bench;
  bench.ask(kContrast, wordBytes(100));
  EXPECT_FALSE(bench.core.settings() == bench.core.powerOnSettings());
  EXPECT_EQ(bench.statusOf(kSetDefaults), 0);
  EXPECT_TRUE(bench.core.settings() == bench.core.powerOnSettings());
  bench.ask(kContrast, wordBytes(101));
  bench.ask(kReset);
  bench.pass(2 * kSecond);
  EXPECT_EQ(bench.word(kContrast), 100);
}

TEST(ThermalCore, Reset_AnswersThenIsSilentAndComesBackWithItsPowerOnSettings) {
  CoreBench bench;
  bench.ask(kContrast, wordBytes(100));
  EXPECT_EQ(bench.statusOf(kReset), 0);
  bench.pass(1500 * kMs - 1);
  EXPECT_TRUE(bench.send(request(kContrast)).empty());
  EXPECT_EQ(bench.core.log().back().verdict, Verdict::InReset);
  bench.pass(1);
  EXPECT_EQ(bench.word(kContrast), kFactoryContrast);
}

TEST(ThermalCore, RequestRightBehindAReset_IsNotHeard) {
  CoreBench bench;
  Bytes both = request(kReset);
  const Bytes second = request(kContrast, wordBytes(100));
  both.insert(both.end(), second.begin(), second.end());
  EXPECT_EQ(core_test::parse(bench.send(both)).function, kReset);
  EXPECT_EQ(bench.core.word(kContrast), kFactoryContrast);
}

TEST(ThermalCore, FactoryDefaults_ReplacePresentAndPowerOnSettings) {
  CoreBench bench;
  bench.ask(kContrast, wordBytes(100));
  bench.ask(kSetDefaults);
  EXPECT_EQ(bench.statusOf(kFactoryDefaults), 0);
  EXPECT_EQ(bench.word(kContrast), kFactoryContrast);
  EXPECT_TRUE(bench.core.powerOnSettings() == simulator::CoreSettings());
}

TEST(ThermalCore, NoOperation_ChangesNothing) {
  CoreBench bench;
  EXPECT_EQ(bench.statusOf(0), 0);
  EXPECT_TRUE(bench.core.settings() == simulator::CoreSettings());
  EXPECT_EQ(bench.core.ffcCount(), 0U);
}

TEST(ThermalCore, OtherLineSettings_AreGarbageThatIsNotAnswered) {
  const std::vector<simulator::UartLine> lines = {{115200, 1, simulator::UartParity::None},
                                                  {57600, 2, simulator::UartParity::None},
                                                  {57600, 1, simulator::UartParity::Even}};
  CoreBench bench;
  for (const simulator::UartLine& line : lines) {
    EXPECT_TRUE(bench.send(request(kContrast, wordBytes(100)), line).empty());
    EXPECT_EQ(bench.core.log().back().verdict, Verdict::WrongLine);
  }
  EXPECT_EQ(bench.word(kContrast), kFactoryContrast);
}

TEST(ThermalCore, Processing_TakesTheTimeOfItsOption) {
  CoreBench usual;
  usual.ask(0);
  EXPECT_EQ(usual.delay_ns, 1 * kMs);
  simulator::CoreOptions options = CoreBench::quietOptions();
  options.processing_us = 0;
  CoreBench prompt(options);
  prompt.ask(0);
  EXPECT_EQ(prompt.delay_ns, 0U);
}

TEST(ThermalCore, Log_TellsWhatCameAndWhatWasAnswered) {
  CoreBench bench;
  bench.pass(kSecond);
  bench.ask(11, {0x00, 0x03});
  bench.send({0x55});
  const auto log = bench.core.log();
  ASSERT_EQ(log.size(), 2U);
  EXPECT_EQ(log[0].time_ns, bench.core.powerOnNs() + kSecond);
  EXPECT_EQ(log[0].received, request(11, {0x00, 0x03}));
  EXPECT_EQ(log[0].status, simulator::CoreStatus::RangeError);
  EXPECT_EQ(log[0].function(), 11);
  EXPECT_EQ(simulator::describe(log[0], bench.core.powerOnNs()),
            "    1.000 s  frame: 6e 00 00 0b 00 02 0f 08 00 03 30 63 -> status 0x03: 6e 03 00 0b 00 00 c1 98 00 00");
  EXPECT_FALSE(log[1].status.has_value());
  EXPECT_FALSE(log[1].function().has_value());
  EXPECT_EQ(simulator::describe(log[1], bench.core.powerOnNs()), "    1.000 s  noise: 55");
  bench.core.clearLog();
  EXPECT_TRUE(bench.core.log().empty());
}

TEST(ThermalCore, Log_KeepsTheLastEntriesOnly) {
  simulator::CoreOptions options = CoreBench::quietOptions();
  options.log_entries = 3;
  CoreBench bench(options);
  for (uint16_t value = 0; value < 5; ++value) bench.ask(kContrast, wordBytes(value));
  const auto log = bench.core.log();
  ASSERT_EQ(log.size(), 3U);
  EXPECT_EQ(log.front().received, request(kContrast, wordBytes(2)));
}

TEST(ThermalCore, Word_OfNoSetting_Throws) {
  CoreBench bench;
  EXPECT_THROW(bench.core.word(200), std::out_of_range);
  EXPECT_EQ(bench.core.word(229, 0x05), 2200);
}

}  // namespace
