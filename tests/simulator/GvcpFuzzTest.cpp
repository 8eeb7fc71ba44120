// Hostile datagrams against the packet handler: it never crashes, and never answers what its protocol forbids.
#include <gtest/gtest.h>

#include <random>

#include "DeviceBench.h"

namespace {

using namespace simulator;
using gvcp::Bytes;

std::vector<Bytes> validPackets() {
  return {
      {0x42, 1, 0, 2, 0, 0, 0xFF, 0xFF},
      gvcp::request(0x04, gvcp::join({Bytes(2), {2, 0x4B, 1, 2, 3, 4}, Bytes(48)}), 2),
      gvcp::readRegister(0xA00, 3),
      gvcp::request(0x80, gvcp::join({gvcp::u32(0x24), gvcp::u32(0x938)}), 4),
      gvcp::writeRegister(0xA00, 2, 5),
      gvcp::writeRegister(address::kStreamPort, 5000, 6),
      gvcp::writeRegister(address::kAcquisitionStart, 1, 7),
      gvcp::readMemory(0x200, 512, 8),
      gvcp::readMemory(address::kXml, 536, 9),
      gvcp::readMemory(address::kFileBlock, 512, 10),
      gvcp::writeMemory(address::kFileOperation,
                        gvcp::join({gvcp::u32(3), gvcp::u32(0), gvcp::u32(8), gvcp::u32(1), Bytes(484, 0x55)}), 11),
      gvcp::writeMemory(address::kBulkLoopback, gvcp::u32(1), 12),
      gvcp::packetResend(1, 1, 2, 13),
      gvcp::request(0x40, Bytes(20), 14, 0x11),
  };
}

// What holds for every answer, whatever the question was.
void checkAnswer(const Bytes& question, const Bytes& answer) {
  if (answer.empty()) return;
  ASSERT_GE(question.size(), 8U);
  ASSERT_EQ(question[0], 0x42);
  ASSERT_NE(question[1] & 1, 0) << "answered without being asked to";
  ASSERT_GE(answer.size(), 8U);
  ASSERT_LE(answer.size(), 8U + 540U);
  const gvcp::Answer parts = gvcp::parse(answer);
  ASSERT_EQ(parts.length, parts.payload.size());
  ASSERT_EQ(parts.id, gvcp::u16At(question, 6));
  ASSERT_EQ(parts.command, static_cast<uint16_t>(gvcp::u16At(question, 2) + 1));
}

TEST(GvcpFuzz, EveryTruncationOfEveryPacket_IsRefusedOrDropped) {
  for (const Bytes& packet : validPackets()) {
    for (std::size_t size = 0; size < packet.size(); ++size) {
      DeviceBench bench;
      bench.id = 1000;
      bench.takeControl();
      const Bytes cut(packet.begin(), packet.begin() + static_cast<std::ptrdiff_t>(size));
      const Bytes answer = bench.send(cut);
      checkAnswer(cut, answer);
      if (!answer.empty()) {
        EXPECT_EQ(gvcp::u16At(answer, 0), 0x800E);
      }
      EXPECT_TRUE(bench.stream.log.empty());
    }
  }
}

TEST(GvcpFuzz, MutatedPackets_NeverBreakTheDevice) {
  std::mt19937_64 generator(20240917);
  const std::vector<Bytes> seeds = validPackets();
  DeviceBench bench(nullptr, false);
  uint64_t answered = 0;
  for (int round = 0; round < 60'000; ++round) {
    if (round % 50 == 0) bench.takeControl();
    Bytes packet = seeds[generator() % seeds.size()];
    const auto mutations = generator() % 4;
    for (uint64_t i = 0; i < mutations && !packet.empty(); ++i) {
      const std::size_t at = generator() % packet.size();
      switch (generator() % 4) {
        case 0:
          packet[at] = static_cast<uint8_t>(generator());
          break;
        case 1:
          packet[at] = static_cast<uint8_t>(packet[at] ^ (1U << (generator() % 8)));
          break;
        case 2:
          packet.resize(at);
          break;
        default:
          packet.insert(packet.begin() + static_cast<std::ptrdiff_t>(at), generator() % 8, 0xFF);
          break;
      }
    }
    // Half of the packets get a length field that fits, so as to come past the header's check.
    if (packet.size() >= 8 && generator() % 2 == 0) {
      const Bytes length = gvcp::u16(static_cast<uint32_t>(packet.size() - 8));
      std::copy(length.begin(), length.end(), packet.begin() + 4);
    }
    bench.pass(generator() % 20);
    const Bytes answer = bench.send(packet, generator() % 8 == 0 ? DeviceBench::kOther : DeviceBench::kHost);
    checkAnswer(packet, answer);
    if (::testing::Test::HasFatalFailure()) return;
    answered += answer.empty() ? 0U : 1U;
  }
  EXPECT_GT(answered, 10'000U);
  // Still a device: its bootstrap block is whole and it can be taken into control.
  bench.pass(700'000);
  EXPECT_EQ(bench.read(0x24), 0x7F000002U);
  bench.takeControl();
  EXPECT_EQ(bench.read(address::kControlPrivilege), 2U);
}

}  // namespace
