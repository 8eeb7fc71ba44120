// Every flash command of the core, byte for byte and at its bounds.
#include "simulator/core/FlashCommands.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "FlashBench.h"

namespace {

using namespace core_test;

TEST(FlashCommands, Messages_AreByteForByteWhatTheProtocolSays) {
  FlashBench bench;
  struct Exchange {
    Bytes request;
    Bytes answer;
  };
  const std::vector<Exchange> exchanges = {
      // The geometry: base 0x1000, blocks of 64 bytes.
      {{0x6E, 0x00, 0x00, 0xD5, 0x00, 0x02, 0x71, 0x9D, 0xFF, 0xFF, 0x1D, 0x0F},
       {0x6E, 0x00, 0x00, 0xD5, 0x00, 0x08, 0xD0, 0xD7, 0x00, 0x00, 0x10, 0x00, 0x00, 0x00, 0x00, 0x40, 0x52, 0x40}},
      // Slot 1: 100 bytes from 0x10C0.
      {{0x6E, 0x00, 0x00, 0xD6, 0x00, 0x04, 0x48, 0x0B, 0x00, 0x01, 0x00, 0x11, 0x35, 0x20},
       {0x6E, 0x00, 0x00, 0xD6, 0x00, 0x08, 0x89, 0x87, 0x00, 0x00, 0x10, 0xC0, 0x00, 0x00, 0x00, 0x64, 0x05, 0x1E}},
      // Block 3 is erased, a byte written there, two are read back, and the byte cannot be written another way.
      {{0x6E, 0x00, 0x00, 0xD4, 0x00, 0x02, 0x46, 0xAD, 0x00, 0x03, 0x30, 0x63},
       {0x6E, 0x00, 0x00, 0xD4, 0x00, 0x00, 0x66, 0xEF, 0x00, 0x00}},
      {{0x6E, 0x00, 0x00, 0xD3, 0x00, 0x05, 0xB3, 0xDA, 0x00, 0x00, 0x10, 0xC0, 0xA5, 0xB0, 0x78},
       {0x6E, 0x00, 0x00, 0xD3, 0x00, 0x00, 0xE3, 0x7F, 0x00, 0x00}},
      {{0x6E, 0x00, 0x00, 0xD2, 0x00, 0x06, 0xB4, 0x89, 0x00, 0x00, 0x10, 0xC0, 0x00, 0x02, 0x1D, 0x12},
       {0x6E, 0x00, 0x00, 0xD2, 0x00, 0x02, 0xF4, 0x0D, 0xA5, 0xFF, 0xFC, 0x7B}},
      {request(kWriteMemory, {0x00, 0x00, 0x10, 0xC0, 0x5A}),
       {0x6E, 0x03, 0x00, 0xD3, 0x00, 0x00, 0x0D, 0xAD, 0x00, 0x00}},
      // The second slot.
      {{0x6E, 0x00, 0x00, 0x1E, 0x00, 0x02, 0xA7, 0x9B, 0x00, 0x01, 0x10, 0x21},
       {0x6E, 0x00, 0x00, 0x1E, 0x00, 0x02, 0xA7, 0x9B, 0x00, 0x01, 0x10, 0x21}},
  };
  for (const Exchange& exchange : exchanges) EXPECT_EQ(bench.send(exchange.request), exchange.answer);
}

TEST(FlashCommands, GeometryQuery_TellsBaseAndBlockSize) {
  FlashBench bench;
  EXPECT_EQ(bench.ask(kFlashGeometry, {0xFF, 0xFF}).payload, (Bytes{0, 0, 0x10, 0x00, 0, 0, 0, 0x40}));
  EXPECT_EQ(bench.statusOf(kFlashGeometry, {0xFF, 0xFE}), kRange);
  EXPECT_EQ(bench.statusOf(kFlashGeometry), kByteCount);
  EXPECT_EQ(bench.statusOf(kFlashGeometry, {0xFF, 0xFF, 0xFF}), kByteCount);
}

TEST(FlashCommands, RegionQuery_TellsAddressAndSizeOfEachSlot) {
  FlashBench bench;
  EXPECT_EQ(bench.ask(kSlotRegion, {0, 0, 0, 0x11}).payload, (Bytes{0, 0, 0x10, 0x40, 0, 0, 0, 100}));
  EXPECT_EQ(bench.ask(kSlotRegion, {0, 1, 0, 0x11}).payload, (Bytes{0, 0, 0x10, 0xC0, 0, 0, 0, 100}));
  EXPECT_EQ(bench.statusOf(kSlotRegion, {0, 2, 0, 0x11}), kRange);
  EXPECT_EQ(bench.statusOf(kSlotRegion, {0, 0, 0, 0x12}), kRange);
  EXPECT_EQ(bench.statusOf(kSlotRegion, {0, 0, 0}), kByteCount);
}

TEST(FlashCommands, Read_AnswersTheBytes) {
  FlashBench bench;
  ASSERT_EQ(bench.write(0x1040, {1, 2, 3, 4}), kOk);
  EXPECT_EQ(bench.send(request(kReadMemory, {0, 0, 0x10, 0x3F, 0, 6})).size(), 16U);
  EXPECT_EQ(bench.read(0x103F, 6), (Bytes{0xFF, 1, 2, 3, 4, 0xFF}));
  Bytes most(256, 0xFF);
  std::copy_n(Bytes{1, 2, 3, 4}.begin(), 4, most.begin() + 64);
  EXPECT_EQ(bench.read(0x1000, 256), most);
}

TEST(FlashCommands, Read_OutsideTheFlashOrOfOtherLengths_IsRefused) {
  FlashBench bench;  // From 0x1000 to before 0x1140.
  const std::vector<std::pair<uint32_t, uint16_t>> outside = {{0x0FFF, 1},     {0x1140, 1}, {0x113F, 2},  {0, 4},
                                                              {0xFFFFFFFF, 2}, {0x1000, 0}, {0x1000, 257}};
  for (const auto& [address, size] : outside) {
    EXPECT_EQ(bench.statusOf(kReadMemory, at(address, wordBytes(size))), kRange) << address << " " << size;
  }
  EXPECT_EQ(bench.read(0x113F, 1), Bytes{0xFF});
  for (const std::size_t size : {0U, 4U, 5U, 7U}) EXPECT_EQ(bench.statusOf(kReadMemory, Bytes(size, 0)), kByteCount);
  EXPECT_EQ(bench.core.flashCounters().reads, 1U);
}

TEST(FlashCommands, Write_TakesOneTo128BytesAndAnswersWithoutPayload) {
  FlashBench bench(simulator::flashGeometryFor(512, 64));
  const uint32_t address = bench.core.flashGeometry().slots[0].address;
  for (const std::size_t size : {1U, 127U, 128U}) {
    const Answer answer = bench.ask(kWriteMemory, at(address, Bytes(size, 0x55)));
    EXPECT_TRUE(answer.sound);
    EXPECT_EQ(answer.status, kOk);
    EXPECT_TRUE(answer.payload.empty());
  }
  EXPECT_EQ(bench.statusOf(kWriteMemory, at(address)), kByteCount) << "an address alone";
  EXPECT_EQ(bench.statusOf(kWriteMemory, at(address, Bytes(129, 0))), kByteCount);
  EXPECT_EQ(bench.statusOf(kWriteMemory), kByteCount);
  Bytes expected(128, 0x55);
  expected.resize(130, 0xFF);
  EXPECT_EQ(bench.read(address, 130), expected);
}

TEST(FlashCommands, Write_OutsideTheFlash_ChangesNothing) {
  FlashBench bench;
  EXPECT_EQ(bench.write(0x0FFE, {0, 0, 0}), kRange) << "begins before it";
  EXPECT_EQ(bench.write(0x113F, {0, 0}), kRange) << "ends behind it";
  EXPECT_EQ(bench.write(0xFFFFFFFF, {0, 0}), kRange);
  EXPECT_EQ(bench.write(0, {0}), kRange);
  EXPECT_EQ(bench.read(0x1000, 1), Bytes{0xFF});
  EXPECT_EQ(bench.read(0x113F, 1), Bytes{0xFF});
  EXPECT_EQ(bench.core.flashCounters().writes, 0U);
  EXPECT_EQ(bench.core.flashCounters().refused_writes, 4U);
}

TEST(FlashCommands, Erase_ClearsItsBlockOnlyAndAnswersWhenDone) {
  FlashBench bench;
  for (uint32_t address = 0x1000; address < 0x1140; address += 64) ASSERT_EQ(bench.write(address, Bytes(64, 0)), kOk);
  EXPECT_EQ(bench.delay_ns, 1 * kMs);
  EXPECT_EQ(bench.erase(2), kOk);
  EXPECT_EQ(bench.delay_ns, 201 * kMs);
  EXPECT_EQ(bench.read(0x1080, 64), Bytes(64, 0xFF));
  EXPECT_EQ(bench.read(0x1000, 128), Bytes(128, 0));
  EXPECT_EQ(bench.read(0x10C0, 128), Bytes(128, 0));
}

TEST(FlashCommands, Erase_OfNoBlock_IsRefusedAtOnce) {
  FlashBench bench;
  EXPECT_EQ(bench.erase(5), kRange);
  EXPECT_EQ(bench.erase(0xFFFF), kRange);
  EXPECT_EQ(bench.delay_ns, 1 * kMs);
  EXPECT_EQ(bench.statusOf(kEraseBlock, {0}), kByteCount);
  EXPECT_EQ(bench.statusOf(kEraseBlock, {0, 0, 0}), kByteCount);
  EXPECT_EQ(bench.core.flashCounters().erases, 0U);
}

TEST(FlashCommands, TwoErasesAtOnce_TakeTwiceTheTime) {
  FlashBench bench;
  Bytes both = request(kEraseBlock, wordBytes(0));
  const Bytes second = request(kEraseBlock, wordBytes(1));
  both.insert(both.end(), second.begin(), second.end());
  EXPECT_EQ(bench.send(both).size(), 20U);
  EXPECT_EQ(bench.delay_ns, 401 * kMs);
}

TEST(FlashCommands, DamagedRequests_ChangeNothing) {
  FlashBench bench;
  Bytes damaged = request(kWriteMemory, at(0x1040, {0}));
  damaged.back() = static_cast<uint8_t>(damaged.back() ^ 1U);
  EXPECT_EQ(parse(bench.send(damaged)).status, 0x04);
  EXPECT_EQ(bench.read(0x1040, 1), Bytes{0xFF});
}

TEST(FlashCommands, LensSlot_ChangesWhatIsLeftInThePicture) {
  simulator::CoreOptions options = FlashBench::quietOptions();
  options.thermal.still = false;
  FlashBench bench(smallGeometry(), options);
  bench.pass(30 * kSecond);
  const simulator::CoreVideo first = bench.core.nextVideo(1);
  EXPECT_EQ(bench.ask(kLensSlot, {0, 1}).payload, (Bytes{0, 1}));
  EXPECT_EQ(bench.word(kLensSlot), 1);
  const simulator::CoreVideo second = bench.core.nextVideo(2);
  EXPECT_NE(first.drift_millikelvin, 0);
  EXPECT_EQ(first.drift_millikelvin, second.drift_millikelvin);
  EXPECT_NE(first.offset_seed, second.offset_seed);
  EXPECT_EQ(bench.statusOf(kLensSlot, {0, 0}), kOk);
  EXPECT_EQ(bench.core.nextVideo(3).offset_seed, first.offset_seed);
}

}  // namespace
