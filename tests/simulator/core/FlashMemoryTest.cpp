// The flash's rules: bits that are only cleared, wear, geometries of every kind, and a whole transfer's time.
#include "simulator/core/FlashMemory.h"

#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>

#include "FlashBench.h"
#include "simulator/core/CoreOptionsFor.h"

namespace {

using namespace core_test;
using simulator::FlashGeometry;

TEST(FlashMemory, New_ReadsErasedAndIsNotWorn) {
  FlashBench bench;
  EXPECT_EQ(bench.core.lensTable(0), Bytes(100, 0xFF));
  EXPECT_EQ(bench.core.flashWear(), std::vector<uint32_t>(5, 0));
  EXPECT_THROW(bench.core.lensTable(2), std::out_of_range);
}

TEST(FlashMemory, Writes_OnlyClearBits) {
  FlashBench bench;
  EXPECT_EQ(bench.write(0x1040, {0xF0}), kOk);
  EXPECT_EQ(bench.write(0x1040, {0x30}), kOk);
  EXPECT_EQ(bench.write(0x1040, {0x30}), kOk) << "the same again sets nothing";
  EXPECT_EQ(bench.write(0x1040, {0x31}), kRange);
  EXPECT_EQ(bench.read(0x1040, 1), Bytes{0x30});
}

TEST(FlashMemory, RefusedWrite_ChangesNoByteOfIt) {
  FlashBench bench;
  ASSERT_EQ(bench.write(0x1043, {0x00}), kOk);
  EXPECT_EQ(bench.write(0x1040, {1, 2, 3, 4, 5}), kRange);
  EXPECT_EQ(bench.read(0x1040, 5), (Bytes{0xFF, 0xFF, 0xFF, 0x00, 0xFF}));
  EXPECT_EQ(bench.core.flashCounters().refused_writes, 1U);
}

TEST(FlashMemory, Erase_MakesWritableAndWears) {
  FlashBench bench;
  ASSERT_EQ(bench.write(0x1040, {0x00}), kOk);
  ASSERT_EQ(bench.erase(1), kOk);
  EXPECT_EQ(bench.write(0x1040, {0xA5}), kOk);
  ASSERT_EQ(bench.erase(1), kOk);
  ASSERT_EQ(bench.erase(4), kOk);
  EXPECT_EQ(bench.core.flashWear(), (std::vector<uint32_t>{0, 2, 0, 0, 1}));
  EXPECT_EQ(bench.core.flashCounters().erases, 3U);
  EXPECT_EQ(bench.core.flashCounters().writes, 2U);
}

TEST(FlashMemory, ResetAndFactoryDefaults_KeepTheContents) {
  FlashBench bench;
  ASSERT_EQ(bench.write(0x1040, {0x12}), kOk);
  ASSERT_EQ(bench.statusOf(3), kOk);
  ASSERT_EQ(bench.statusOf(2), kOk);
  bench.pass(2 * kSecond);
  EXPECT_EQ(bench.read(0x1040, 1), Bytes{0x12});
}

TEST(FlashMemory, TransferTwice_LeavesTheSecondTable) {
  FlashBench bench;
  ASSERT_TRUE(bench.transfer(0, table(100, 1)));
  ASSERT_TRUE(bench.transfer(1, table(100, 2)));
  ASSERT_TRUE(bench.transfer(0, table(100, 3)));
  EXPECT_EQ(bench.core.lensTable(0), table(100, 3));
  EXPECT_EQ(bench.core.lensTable(1), table(100, 2));
}

TEST(FlashMemory, TransferWithoutErasing_IsRefused) {
  FlashBench bench;
  ASSERT_TRUE(bench.transfer(0, table(100, 1)));
  EXPECT_EQ(bench.write(0x1040, table(100, 2)), kRange);
  EXPECT_EQ(bench.core.lensTable(0), table(100, 1));
}

TEST(FlashGeometry, BlockSizeZero_IsOneBlockThatErasesEverything) {
  FlashGeometry geometry = smallGeometry();
  geometry.block_bytes = 0;
  FlashBench bench(geometry);
  EXPECT_EQ(bench.ask(kFlashGeometry, {0xFF, 0xFF}).payload, (Bytes{0, 0, 0x10, 0, 0, 0, 0, 0}));
  ASSERT_TRUE(bench.transfer(1, table(100, 1)));
  ASSERT_TRUE(bench.transfer(0, table(100, 2)));
  EXPECT_EQ(bench.core.lensTable(0), table(100, 2));
  EXPECT_EQ(bench.core.lensTable(1), Bytes(100, 0xFF));
  EXPECT_EQ(bench.erase(1), kRange);
  EXPECT_EQ(bench.core.flashWear(), std::vector<uint32_t>{2});
}

TEST(FlashGeometry, SlotThatBeginsInsideABlock_LosesItsEndToWhoCountsBlocksBySizeAlone) {
  // 100 bytes from the middle of block 1 reach into block 3, but by their size take two blocks.
  FlashBench bench({0x1000, 64, {{{0x1060, 100}, {0x1100, 100}}}});
  EXPECT_TRUE(bench.transfer(0, table(100, 1)));
  EXPECT_FALSE(bench.transfer(0, table(100, 2)));
  ASSERT_EQ(bench.erase(3), kOk);
  EXPECT_EQ(bench.write(0x1060, table(100, 2)), kOk);
}

TEST(FlashGeometry, SlotsThatShareABlock_LoseEachOthersBytes) {
  FlashBench bench({0x1000, 64, {{{0x1000, 100}, {0x1064, 28}}}});
  ASSERT_TRUE(bench.transfer(0, table(100, 1)));
  EXPECT_TRUE(bench.transfer(1, table(28, 2)));
  const Bytes first = bench.core.lensTable(0);
  EXPECT_EQ(Bytes(first.begin() + 64, first.end()), Bytes(36, 0xFF));
}

TEST(FlashGeometry, OddTableSizes_AreTransferredToTheLastByte) {
  for (const uint32_t size : {1U, 127U, 128U, 129U, 1000U}) {
    FlashBench bench(simulator::flashGeometryFor(size, 256));
    ASSERT_TRUE(bench.transfer(1, table(size))) << size;
    EXPECT_EQ(bench.core.lensTable(1), table(size)) << size;
  }
}

TEST(FlashGeometry, Usual_HasAlignedSlotsOneAfterTheOther) {
  const FlashGeometry geometry = simulator::flashGeometryFor(640 * 512 * 4);
  EXPECT_EQ(geometry.block_bytes, 131072U);
  EXPECT_EQ(geometry.slots[0].table_bytes, 1310720U);
  EXPECT_EQ(geometry.slots[0].address, geometry.base_address + 131072);
  EXPECT_EQ(geometry.slots[1].address, geometry.slots[0].address + 1310720);
  EXPECT_EQ(simulator::flashBytes(geometry), 21U * 131072U);
  const FlashGeometry odd = simulator::flashGeometryFor(336 * 256 * 4);
  EXPECT_EQ(odd.slots[1].address, odd.slots[0].address + 3 * 131072) << "a part of a block is a block";
}

TEST(FlashGeometry, OfACamera_FollowsItsSensorAndPace) {
  simulator::CameraOptions camera;
  camera.sensor = {160, 128};
  EXPECT_EQ(coreOptionsFor(camera).flash.geometry.slots[1].table_bytes, 81920U);
  EXPECT_EQ(coreOptionsFor(camera).flash.erase_ms, 200U);
  camera.uart_pacing = false;
  EXPECT_EQ(coreOptionsFor(camera).flash.erase_ms, 0U);
}

TEST(FlashGeometry, ThatNoCoreCanHave_Throws) {
  EXPECT_THROW(FlashBench({0x1000, 64, {{{0x0FFF, 4}, {0x1000, 4}}}}), std::invalid_argument);
  EXPECT_THROW(FlashBench({0, 64, {{{0, 4}, {0xF0000000, 4}}}}), std::invalid_argument);
  EXPECT_THROW(FlashBench({0xFFFFFFF0, 64, {{{0xFFFFFFF0, 4}, {0xFFFFFFF0, 4}}}}), std::invalid_argument);
  EXPECT_THROW(FlashBench({0, 0xFFFFFFFF, {{{0, 4}, {0, 4}}}}), std::invalid_argument);
}

TEST(FlashGeometry, TablesOfTheFactory_StandInTheSlotsWithoutWear) {
  simulator::CoreOptions options = FlashBench::quietOptions();
  options.flash.tables = {table(100, 1), table(100, 2)};
  FlashBench bench(smallGeometry(), options);
  EXPECT_EQ(bench.core.lensTable(0), table(100, 1));
  EXPECT_EQ(bench.read(0x10C0, 100), table(100, 2));
  EXPECT_EQ(bench.core.flashWear(), std::vector<uint32_t>(5, 0));
  EXPECT_EQ(bench.write(0x1040, table(100, 2)), kRange) << "not erased";
  bench.core.setLensTable(0, table(100, 3));
  EXPECT_EQ(bench.read(0x1040, 100), table(100, 3));
  EXPECT_THROW(bench.core.setLensTable(0, table(99)), std::invalid_argument);
  options.flash.tables[1].pop_back();
  EXPECT_THROW(FlashBench(smallGeometry(), options), std::invalid_argument);
}

TEST(FlashMemory, WholeTable_CostsTheCoreFarLessThanItsLine) {
  simulator::CameraOptions camera;
  camera.uart_pacing = false;
  const simulator::CoreOptions options = coreOptionsFor(camera);
  FlashBench bench(options.flash.geometry, options);
  const Bytes contents = table(1310720);
  std::vector<Bytes> messages;
  for (std::size_t offset = 0; offset < contents.size(); offset += 128) {
    const auto begin = contents.begin() + static_cast<std::ptrdiff_t>(offset);
    const uint32_t address = options.flash.geometry.slots[0].address + static_cast<uint32_t>(offset);
    messages.push_back(request(kWriteMemory, at(address, Bytes(begin, begin + 128))));
  }
  const auto start = std::chrono::steady_clock::now();
  for (const Bytes& message : messages) ASSERT_EQ(bench.send(message).size(), 10U);
  const std::chrono::duration<double, std::milli> taken_ms = std::chrono::steady_clock::now() - start;
  RecordProperty("taken_ms", static_cast<int>(taken_ms.count()));
  EXPECT_EQ(bench.core.lensTable(0), contents);
  // At 57600 baud these bytes take more than four minutes; sanitizers and a busy machine are allowed for.
  EXPECT_LT(taken_ms.count(), 20'000.0);
}

}  // namespace
