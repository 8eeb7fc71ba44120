// Bytes in, frames out: what the core takes for a frame, for a damaged one and for noise.
#include "simulator/core/FrameDecoder.h"

#include <gtest/gtest.h>

#include <random>

#include "CoreBench.h"
#include "simulator/core/CoreFrame.h"
#include "simulator/core/Crc16.h"

namespace {

using namespace simulator;
using core_test::kMs;
using core_test::request;

using Verdicts = std::vector<Verdict>;

// Frames written down byte for byte, not made by any code of this project.
const Bytes kGetFfcMode{0x6E, 0x00, 0x00, 0x0B, 0x00, 0x00, 0x2F, 0x4A, 0x00, 0x00};
const Bytes kSetFfcPeriod{0x6E, 0x00, 0x00, 0x0D, 0x00, 0x02, 0xBD, 0xA8, 0x75, 0x30, 0xC1, 0xFF};

Bytes join(const std::vector<Bytes>& parts) {
  Bytes bytes;
  for (const Bytes& part : parts) bytes.insert(bytes.end(), part.begin(), part.end());
  return bytes;
}

class Decoder : public ::testing::Test {
 protected:
  std::vector<DecodedFrame> feed(const Bytes& bytes, uint64_t pause_ns = 0, uint64_t duration_ns = 0) {
    now_ns += pause_ns + duration_ns;
    found = decoder.feed(bytes.data(), bytes.size(), now_ns, duration_ns);
    return found;
  }
  Verdicts verdicts(const Bytes& bytes, uint64_t pause_ns = 0) {
    Verdicts list;
    for (const DecodedFrame& frame : feed(bytes, pause_ns)) list.push_back(frame.verdict);
    return list;
  }
  FrameDecoder decoder;
  std::vector<DecodedFrame> found;
  uint64_t now_ns = core_test::kSecond;
};

TEST(Crc16, NineDigits_GiveTheKnownCheckValue) {
  const Bytes digits{'1', '2', '3', '4', '5', '6', '7', '8', '9'};
  EXPECT_EQ(crc16(digits.data(), digits.size()), 0x31C3);
  EXPECT_EQ(core_test::crcOf(digits), 0x31C3);
  EXPECT_EQ(crc16(nullptr, 0), 0);
}

TEST(CoreFrame, Encoded_IsByteForByteTheFrameOnTheWire) {
  EXPECT_EQ(encodeFrame(0x0B, 0, {}), kGetFfcMode);
  EXPECT_EQ(encodeFrame(0x0D, 0, {0x75, 0x30}), kSetFfcPeriod);
  EXPECT_EQ(encodeFrame(0x0B, 3, {}), (Bytes{0x6E, 0x03, 0x00, 0x0B, 0x00, 0x00, 0xC1, 0x98, 0x00, 0x00}));
}

TEST_F(Decoder, Frame_GivesFunctionAndPayload) {
  ASSERT_EQ(verdicts(kSetFfcPeriod), Verdicts{Verdict::Frame});
  EXPECT_EQ(found[0].function, 0x0D);
  EXPECT_EQ(found[0].payload, (Bytes{0x75, 0x30}));
  EXPECT_EQ(found[0].bytes, kSetFfcPeriod);
}

TEST_F(Decoder, FrameSplitAnywhere_IsPutTogether) {
  for (std::size_t cut = 1; cut < kSetFfcPeriod.size(); ++cut) {
    const auto at = kSetFfcPeriod.begin() + static_cast<std::ptrdiff_t>(cut);
    EXPECT_EQ(verdicts(Bytes(kSetFfcPeriod.begin(), at)), Verdicts{}) << cut;
    EXPECT_EQ(verdicts(Bytes(at, kSetFfcPeriod.end())), Verdicts{Verdict::Frame}) << cut;
    EXPECT_EQ(found[0].payload, (Bytes{0x75, 0x30})) << cut;
  }
}

TEST_F(Decoder, FrameByteByByte_IsPutTogether) {
  for (std::size_t i = 0; i + 1 < kGetFfcMode.size(); ++i) EXPECT_EQ(verdicts({kGetFfcMode[i]}, kMs), Verdicts{});
  EXPECT_EQ(verdicts({kGetFfcMode.back()}, kMs), Verdicts{Verdict::Frame});
}

TEST_F(Decoder, TwoFramesInOneDelivery_AreBothFound) {
  EXPECT_EQ(verdicts(join({kGetFfcMode, kSetFfcPeriod})), (Verdicts{Verdict::Frame, Verdict::Frame}));
}

TEST_F(Decoder, NoiseAroundFrames_IsSkipped) {
  EXPECT_EQ(verdicts(join({{0x00, 0xFF, 0x13}, kGetFfcMode, {0x55}})),
            (Verdicts{Verdict::Noise, Verdict::Frame, Verdict::Noise}));
  EXPECT_EQ(found[0].bytes, (Bytes{0x00, 0xFF, 0x13}));
}

TEST_F(Decoder, ProcessCodesInTheNoise_DoNotHideTheFrame) {
  const Verdicts expected{Verdict::Noise, Verdict::Noise, Verdict::Frame};
  EXPECT_EQ(verdicts(join({{0x01, 0x6E, 0x6E, 0x02}, kGetFfcMode})), expected);
}

TEST_F(Decoder, ZeroBytes_AreNoiseAlthoughTheirCheckSumIsRight) {
  EXPECT_EQ(verdicts(Bytes(40, 0)), Verdicts{Verdict::Noise});
}

TEST_F(Decoder, WrongHeaderCheckSum_IsADamagedHeaderOnce) {
  for (std::size_t byte = 1; byte < 8; ++byte) {
    Bytes damaged = kSetFfcPeriod;
    damaged[byte] = static_cast<uint8_t>(damaged[byte] ^ 0x10U);
    EXPECT_EQ(verdicts(damaged), Verdicts{Verdict::DamagedHeader}) << byte;
    EXPECT_EQ(found[0].function, damaged[3]) << byte;
    EXPECT_EQ(verdicts(kGetFfcMode), Verdicts{Verdict::Frame}) << byte;
  }
}

TEST_F(Decoder, WrongFrameCheckSum_IsADamagedFrame) {
  for (std::size_t byte = 8; byte < kSetFfcPeriod.size(); ++byte) {
    Bytes damaged = kSetFfcPeriod;
    damaged[byte] = static_cast<uint8_t>(damaged[byte] ^ 0x01U);
    EXPECT_EQ(verdicts(damaged), Verdicts{Verdict::DamagedFrame}) << byte;
    EXPECT_EQ(found[0].bytes, damaged) << byte;
    EXPECT_EQ(verdicts(kGetFfcMode), Verdicts{Verdict::Frame}) << byte;
  }
}

TEST_F(Decoder, PayloadByteLost_CostsThatFrameOnly) {
  Bytes shortened = kSetFfcPeriod;
  shortened.erase(shortened.begin() + 9);
  EXPECT_EQ(verdicts(shortened), Verdicts{});
  EXPECT_EQ(verdicts(kGetFfcMode, kMs), (Verdicts{Verdict::DamagedFrame, Verdict::Frame}));
}

TEST_F(Decoder, OtherProcessCode_IsToldFromNoise) {
  Bytes frame{0x6F, 0x00, 0x00, 0x0B, 0x00, 0x02};
  appendU16(frame, core_test::crcOf(frame));
  frame.insert(frame.end(), {0x12, 0x34, 0x56, 0x78});
  EXPECT_EQ(verdicts(frame), Verdicts{Verdict::UndefinedProcess});
  EXPECT_EQ(found[0].function, 0x0B);
  EXPECT_EQ(found[0].bytes, frame);
}

TEST_F(Decoder, StatusOrReservedByteNotZero_IsAnUndefinedProcess) {
  for (const std::size_t byte : {std::size_t{1}, std::size_t{2}}) {
    Bytes frame{0x6E, 0x00, 0x00, 0x0B, 0x00, 0x00};
    frame[byte] = 1;
    appendU16(frame, core_test::crcOf(frame));
    appendU16(frame, core_test::crcOf(frame));
    EXPECT_EQ(verdicts(frame), Verdicts{Verdict::UndefinedProcess}) << byte;
  }
}

TEST_F(Decoder, AnnouncedPayload_IsWaitedForUpToTheLargest) {
  const Bytes largest = request(0x0B, Bytes(FrameDecoder::kLargestPayload, 0x11));
  EXPECT_EQ(verdicts(largest), Verdicts{Verdict::Frame});
  Bytes header = request(0x0B, Bytes(FrameDecoder::kLargestPayload + 1, 0x11));
  header.resize(8);
  EXPECT_EQ(verdicts(header), Verdicts{Verdict::TooLong});
  EXPECT_EQ(found[0].function, 0x0B);
}

TEST_F(Decoder, PartialFrame_IsDroppedAfterASilenceOnly) {
  const Bytes head(kSetFfcPeriod.begin(), kSetFfcPeriod.begin() + 9);
  const Bytes tail(kSetFfcPeriod.begin() + 9, kSetFfcPeriod.end());
  feed(head);
  EXPECT_EQ(verdicts(tail, FrameDecoder::kLongestPauseNs), Verdicts{Verdict::Frame});
  feed(head);
  EXPECT_EQ(verdicts(kGetFfcMode, FrameDecoder::kLongestPauseNs + 1), (Verdicts{Verdict::Partial, Verdict::Frame}));
  EXPECT_EQ(found[0].bytes, head);
}

TEST_F(Decoder, TimeOnTheLine_IsNoSilence) {
  const Bytes head(kSetFfcPeriod.begin(), kSetFfcPeriod.begin() + 9);
  feed(head);
  feed(Bytes(kSetFfcPeriod.begin() + 9, kSetFfcPeriod.end()), kMs, FrameDecoder::kLongestPauseNs);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].verdict, Verdict::Frame);
}

TEST_F(Decoder, AnyGarbage_IsForgottenAfterASilence) {
  std::mt19937 generator(1);
  for (int round = 0; round < 5000; ++round) {
    // Frames with a few bytes changed, cut or doubled get further than plain noise.
    Bytes garbage = join({kSetFfcPeriod, kGetFfcMode, kSetFfcPeriod});
    for (uint32_t change = generator() % 4; change > 0; --change) {
      const auto at = garbage.begin() + static_cast<std::ptrdiff_t>(generator() % garbage.size());
      switch (generator() % 3) {
        case 0:
          *at = static_cast<uint8_t>(generator());
          break;
        case 1:
          garbage.erase(at);
          break;
        default:
          garbage.insert(at, static_cast<uint8_t>(generator()));
      }
    }
    std::size_t bytes = 0;
    for (const DecodedFrame& piece : feed(garbage)) {
      // A damaged frame may end with the beginning of the next one.
      if (piece.verdict != Verdict::DamagedFrame) bytes += piece.bytes.size();
    }
    ASSERT_LE(bytes, garbage.size()) << "no other byte is reported twice";
    const Verdicts after = verdicts(kGetFfcMode, FrameDecoder::kLongestPauseNs + 1);
    ASSERT_FALSE(after.empty());
    ASSERT_EQ(after.back(), Verdict::Frame);
    for (std::size_t i = 0; i + 1 < after.size(); ++i) ASSERT_EQ(after[i], Verdict::Partial);
  }
}

}  // namespace
