// The control protocol byte for byte: every command, every refusal, repeated requests.
#include "simulator/GvcpServer.h"

#include <gtest/gtest.h>

#include "DeviceBench.h"

namespace {

using namespace simulator;
using gvcp::Bytes;

constexpr uint16_t kNotImplemented = 0x8001;
constexpr uint16_t kInvalidParameter = 0x8002;
constexpr uint16_t kInvalidAddress = 0x8003;
constexpr uint16_t kWriteProtect = 0x8004;
constexpr uint16_t kBadAlignment = 0x8005;
constexpr uint16_t kAccessDenied = 0x8006;
constexpr uint16_t kInvalidHeader = 0x800E;

TEST(GvcpServer, Discovery_WithAckFlag_SendsTheBootstrapBlock) {
  DeviceBench bench;
  const Bytes ack = bench.send({0x42, 0x01, 0x00, 0x02, 0x00, 0x00, 0xFF, 0xFF});
  ASSERT_EQ(ack.size(), 8U + 0xF8U);
  EXPECT_EQ(Bytes(ack.begin(), ack.begin() + 8), (Bytes{0, 0, 0, 3, 0, 0xF8, 0xFF, 0xFF}));
  EXPECT_EQ(Bytes(ack.begin() + 8 + 0x0A, ack.begin() + 8 + 0x10), (Bytes{2, 0x4B, 1, 2, 3, 4}));
  EXPECT_EQ(gvcp::u32At(ack, 8 + 0x24), 0x7F000002U);
  EXPECT_STREQ(reinterpret_cast<const char*>(ack.data()) + 8 + 0x48, "KEO");
  EXPECT_STREQ(reinterpret_cast<const char*>(ack.data()) + 8 + 0x68, "KEOsim-640");
  EXPECT_STREQ(reinterpret_cast<const char*>(ack.data()) + 8 + 0xD8, "KEOD2001");
  EXPECT_STREQ(reinterpret_cast<const char*>(ack.data()) + 8 + 0xE8, "bench");
}

TEST(GvcpServer, Discovery_WithoutAckFlag_IsNotAnswered) {
  DeviceBench bench;
  EXPECT_TRUE(bench.send({0x42, 0x00, 0x00, 0x02, 0x00, 0x00, 0xFF, 0xFF}).empty());
}

TEST(GvcpServer, Broadcast_OtherThanDiscovery_IsNotAnswered) {
  DeviceBench bench;
  const Bytes read = gvcp::readRegister(0, 1);
  EXPECT_TRUE(bench.server.handleBroadcast(read.data(), read.size(), bench.now_ns).ack.empty());
}

Bytes forceIp(const Bytes& mac, uint32_t address) {
  return gvcp::request(0x04, gvcp::join({Bytes(2), mac, Bytes(12), gvcp::u32(address), Bytes(32)}), 7);
}

TEST(GvcpServer, ForceIp_ForAnotherMac_IsNotAnswered) {
  DeviceBench bench;
  EXPECT_TRUE(bench.send(forceIp({2, 0x4B, 1, 2, 3, 5}, 0x7F000009)).empty());
}

TEST(GvcpServer, ForceIp_ToTheOwnAddress_IsGrantedAndToAnotherRefused) {
  DeviceBench bench;
  EXPECT_EQ(bench.ask(forceIp({2, 0x4B, 1, 2, 3, 4}, 0x7F000002)).status, 0);
  EXPECT_EQ(bench.ask(forceIp({2, 0x4B, 1, 2, 3, 4}, 0x7F000009)).status, kNotImplemented);
}

TEST(GvcpServer, ReadRegister_SeveralAddresses_AnswersAllInOrder) {
  DeviceBench bench;
  const Bytes ack = bench.send(gvcp::request(0x80, gvcp::join({gvcp::u32(0x24), gvcp::u32(0x938)}), 0x1234));
  EXPECT_EQ(ack, (Bytes{0, 0, 0, 0x81, 0, 8, 0x12, 0x34, 127, 0, 0, 2, 0, 0, 0x0B, 0xB8}));
}

TEST(GvcpServer, WriteRegister_SeveralPairs_StopsAtTheFirstRefused) {
  DeviceBench bench;
  bench.takeControl();
  const Bytes pairs =
      gvcp::join({gvcp::u32(0x938), gvcp::u32(1000), gvcp::u32(0x24), gvcp::u32(1), gvcp::u32(0x938), gvcp::u32(2000)});
  const Bytes ack = bench.send(gvcp::request(0x82, pairs, 9));
  EXPECT_EQ(ack, (Bytes{0x80, 0x04, 0, 0x83, 0, 4, 0, 9, 0, 0, 0, 1}));
  EXPECT_EQ(bench.read(0x938), 1000U);
}

TEST(GvcpServer, ReadMemory_FourBytesAnywhere_AnswersAddressAndData) {
  DeviceBench bench;
  EXPECT_EQ(bench.send(gvcp::readMemory(address::kWidth, 4, 3)),
            (Bytes{0, 0, 0, 0x85, 0, 8, 0, 3, 0, 1, 0, 0, 0, 0, 2, 0x80}));
}

TEST(GvcpServer, WriteMemory_FourBytes_StoresAndAnswersTheCount) {
  DeviceBench bench;
  bench.takeControl();
  EXPECT_EQ(bench.send(gvcp::writeMemory(address::kWidth, gvcp::u32(320), 4)),
            (Bytes{0, 0, 0, 0x87, 0, 4, 0, 4, 0, 0, 0, 4}));
  EXPECT_EQ(bench.read(address::kWidth), 320U);
  EXPECT_EQ(bench.read(address::kPayloadSize), 320U * 512U * 2U);
}

TEST(GvcpServer, WriteMemory_OneWordRefused_StoresNothing) {
  DeviceBench bench;
  bench.takeControl();
  EXPECT_EQ(bench.writeBlock(address::kWidth, gvcp::join({gvcp::u32(320), gvcp::u32(513)})), kInvalidParameter);
  EXPECT_EQ(bench.read(address::kWidth), 640U);
}

struct Refusal {
  const char* what;
  Bytes request;
  uint16_t status;
};

TEST(GvcpServer, BadRequests_WithAckFlag_GetTheProtocolsStatus) {
  const Refusal refusals[] = {
      {"unknown command", gvcp::request(0x00C0, {}, 1), kNotImplemented},
      {"register misaligned", gvcp::readRegister(0x0026, 1), kBadAlignment},
      {"memory misaligned", gvcp::readMemory(0x0002, 4, 1), kBadAlignment},
      {"register nowhere", gvcp::readRegister(0x00090000, 1), kInvalidAddress},
      {"hole between registers", gvcp::readRegister(0x0A08, 1), kInvalidAddress},
      {"memory beyond its region", gvcp::readMemory(address::kFileBlock + 4, 512, 1), kInvalidAddress},
      {"memory at the very end", gvcp::readMemory(0xFFFFFFFC, 8, 1), kInvalidAddress},
      {"count of 0", gvcp::readMemory(0, 0, 1), kInvalidParameter},
      {"count no multiple of 4", gvcp::readMemory(0, 6, 1), kInvalidParameter},
      {"count too large", gvcp::readMemory(address::kXml, 540, 1), kInvalidParameter},
      {"no address", gvcp::request(0x80, {}, 1), kInvalidParameter},
      {"half an address", gvcp::request(0x80, {0, 0}, 1), kInvalidParameter},
      {"half a pair", gvcp::request(0x82, gvcp::u32(0x938), 1), kInvalidParameter},
      {"write without data", gvcp::request(0x86, gvcp::u32(0x938), 1), kInvalidParameter},
      {"part of a word", gvcp::request(0x86, gvcp::join({gvcp::u32(0x938), {1, 2}}), 1), kInvalidParameter},
      {"read-only register", gvcp::writeRegister(0x24, 1, 1), kWriteProtect},
      {"read-only block", gvcp::writeMemory(0x200, gvcp::u32(1), 1), kWriteProtect},
      {"the description", gvcp::writeMemory(address::kXml, gvcp::u32(1), 1), kWriteProtect},
      {"write to a hole", gvcp::writeRegister(0x0A08, 1, 1), kInvalidAddress},
      {"write misaligned", gvcp::writeRegister(0x093A, 1, 1), kBadAlignment},
      {"write at the very end", gvcp::writeMemory(0xFFFFFFFC, Bytes(8), 1), kInvalidAddress},
      {"heartbeat too short", gvcp::writeRegister(0x938, 499, 1), kInvalidParameter},
      {"width above the sensor's", gvcp::writeRegister(address::kWidth, 641, 1), kInvalidParameter},
      {"width below the least", gvcp::writeRegister(address::kWidth, 15, 1), kInvalidParameter},
      {"packet size off its step", gvcp::writeRegister(0xD04, 1502, 1), kInvalidParameter},
      {"packet size too large", gvcp::writeRegister(0xD04, 9004, 1), kInvalidParameter},
      {"no such entry", gvcp::writeRegister(address::kBulkBaudRate, 9601, 1), kInvalidParameter},
      {"another pixel format", gvcp::writeRegister(address::kPixelFormat, 0x01100007, 1), kInvalidParameter},
      {"boolean 2", gvcp::writeRegister(address::kBulkLoopback, 2, 1), kInvalidParameter},
      {"frame rate not a number", gvcp::writeRegister(address::kAcquisitionFrameRate, 0x7FC00000, 1),
       kInvalidParameter},
      {"frame rate 0", gvcp::writeRegister(address::kAcquisitionFrameRate, 0, 1), kInvalidParameter},
      {"file length above the buffer", gvcp::writeRegister(address::kFileLength, 485, 1), kInvalidParameter},
      {"unknown privilege", gvcp::writeRegister(0xA00, 4, 1), kInvalidParameter},
      {"length field too large", {0x42, 1, 0, 0x80, 0, 8, 0, 1, 0, 0, 0, 0}, kInvalidHeader},
      {"request id 0", gvcp::readRegister(0, 0), kInvalidHeader},
      {"resend upside down", gvcp::packetResend(1, 5, 4, 1, 1), kInvalidParameter},
      {"resend too short", gvcp::request(0x40, gvcp::u32(1), 1), kInvalidParameter},
  };
  for (const Refusal& refusal : refusals) {
    DeviceBench bench;
    bench.id = 100;
    bench.takeControl();
    const gvcp::Answer answer = bench.ask(refusal.request);
    ASSERT_TRUE(answer.present) << refusal.what;
    EXPECT_EQ(answer.status, refusal.status) << refusal.what;
    EXPECT_EQ(answer.command, gvcp::u16At(refusal.request, 2) + 1) << refusal.what;
    EXPECT_EQ(answer.id, gvcp::u16At(refusal.request, 6)) << refusal.what;
    EXPECT_EQ(answer.length, answer.payload.size()) << refusal.what;
    Bytes silent = refusal.request;
    silent[1] = 0;
    EXPECT_TRUE(bench.send(silent).empty()) << refusal.what << " without the acknowledge flag";
  }
}

TEST(GvcpServer, NoCommand_IsDropped) {
  DeviceBench bench;
  EXPECT_TRUE(bench.send({}).empty());
  EXPECT_TRUE(bench.send({0x42, 1, 0, 0x80, 0, 4, 0}).empty());
  Bytes other_key = gvcp::readRegister(0, 1);
  other_key[0] = 0x41;
  EXPECT_TRUE(bench.send(other_key).empty());
  EXPECT_EQ(bench.statistics.snapshot()[Counter::Malformed], 3U);
}

TEST(GvcpServer, Write_WithoutControl_IsDenied) {
  DeviceBench bench;
  EXPECT_EQ(bench.write(address::kWidth, 320), kAccessDenied);
  bench.takeControl();
  EXPECT_EQ(bench.write(address::kWidth, 320, DeviceBench::kOther), kAccessDenied);
  EXPECT_EQ(bench.write(address::kControlPrivilege, 2, DeviceBench::kOther), kAccessDenied);
  EXPECT_EQ(bench.write(address::kControlPrivilege, 0, DeviceBench::kOther), kAccessDenied);
  EXPECT_EQ(bench.read(address::kControlPrivilege, DeviceBench::kOther), 2U);
}

TEST(GvcpServer, ExclusiveAccess_DeniesReadsToOthersButNotDiscovery) {
  DeviceBench bench;
  EXPECT_EQ(bench.write(address::kControlPrivilege, 1), 0);
  EXPECT_EQ(bench.ask(gvcp::readRegister(0x24, 5), DeviceBench::kOther).status, kAccessDenied);
  EXPECT_EQ(bench.ask(gvcp::readMemory(0x24, 4, 6), DeviceBench::kOther).status, kAccessDenied);
  EXPECT_EQ(bench.ask({0x42, 1, 0, 2, 0, 0, 0xFF, 0xFF}, DeviceBench::kOther).status, 0);
  EXPECT_EQ(bench.read(0x24), 0x7F000002U);
}

TEST(GvcpServer, RepeatedWrite_IsAnsweredAgainAndExecutedOnce) {
  DeviceBench bench;
  bench.takeControl();
  const Bytes start = gvcp::writeRegister(address::kAcquisitionStart, 1, 500);
  const Bytes first = bench.send(start);
  bench.send(gvcp::readRegister(0xA00, 501));
  EXPECT_EQ(bench.send(start), first);
  EXPECT_EQ(bench.stream.log, (std::vector<std::string>{"start 0"}));
  EXPECT_EQ(bench.statistics.snapshot()[Counter::Replay], 1U);
}

TEST(GvcpServer, SameIdFromAnotherPeerOrWithOtherBytes_IsExecuted) {
  DeviceBench bench;
  bench.takeControl();
  EXPECT_EQ(bench.ask(gvcp::writeRegister(0x938, 1000, 7)).status, 0);
  EXPECT_EQ(bench.ask(gvcp::writeRegister(0x938, 1000, 7), DeviceBench::kOther).status, kAccessDenied);
  EXPECT_EQ(bench.ask(gvcp::writeRegister(0x938, 2000, 7)).status, 0);
  EXPECT_EQ(bench.read(0x938), 2000U);
}

TEST(GvcpServer, Resend_FromAnyPortOfTheControllingAddress_ReachesTheStream) {
  DeviceBench bench;
  bench.takeControl();
  EXPECT_TRUE(bench.send(gvcp::packetResend(7, 3, 9, 1), DeviceBench::kOther).empty());
  bench.send(gvcp::packetResend(8, 1, 1, 2), Peer{0x7F000005, 40000});
  const Bytes extended = gvcp::join({gvcp::u32(0), gvcp::u32(4), gvcp::u32(5), gvcp::u32(0), gvcp::u32(9)});
  bench.send(gvcp::request(0x40, extended, 3, 0x10));
  EXPECT_EQ(bench.stream.log, (std::vector<std::string>{"resend 7 3-9", "resend 9 4-5"}));
}

}  // namespace
