// switchSFFC1 and switchSFFC2: every request, in order, for tables and blocks of all sizes.
#include <algorithm>
#include <stdexcept>

#include "calibration/SffcProtocol.h"
#include "tests/unit/calibration/SffcTransferFixture.h"

namespace {

TEST_F(SffcTransferTest, Whole_QuestionsErasuresPieces) {
  for (const Slot& slot : kSlots) {
    replyToTransfer(0x00100000, 300, 256, 2, 0x00080000);
    EXPECT_EQ(write(slot), 0);
    const Bytes& table = lenses_[0].*slot.table;
    EXPECT_EQ(takeRequests(), joined(questions(slot), requests({{212, {0x08, 0x00}},
                                                                {212, {0x08, 0x01}},
                                                                {211, piece(0x00100000, table, 0, 128)},
                                                                {211, piece(0x00100080, table, 128, 128)},
                                                                {211, piece(0x00100100, table, 256, 44)}})));
    EXPECT_TRUE(scripted::network().serial.replies.empty());
  }
}

TEST_F(SffcTransferTest, SelectedLens_IsWritten) {
  currentLensNumber = 1;
  replyToTransfer(0, 300, 512, 1);
  EXPECT_EQ(core_.switchSFFC1(), 0);
  EXPECT_EQ(takeRequests().back(), scripted::hex(core_frames::frame(211, piece(256, lenses_[1].low, 256, 44))));
}

TEST_F(SffcTransferTest, OrderOfEveryCall) {
  useLenses({tables("L25mm", 130)});
  replyToTransfer(0, 130, 256, 1);
  EXPECT_EQ(core_.switchSFFC1(), 0);
  Log expected = message(214, {0x00, 0x00, 0x00, 0x11}, 10'000);
  expected = joined(expected, message(213, {0xFF, 0xFF}, 10'000));
  expected = joined(expected, message(212, {0x00, 0x00}, 1'000'000));
  expected = joined(expected, {"PvDeviceAdapter::PvDeviceAdapter Cam A", "PvDeviceSerialPort::Open 2 of Cam A"});
  expected = joined(expected, {"PvDeviceSerialPort::Write " +
                                   scripted::hex(core_frames::frame(211, piece(0, lenses_[0].low, 0, 128))),
                               "PvDeviceSerialPort::GetRxBytesReady", "PvDeviceSerialPort::Read 1024 500"});
  expected.push_back("PvDeviceSerialPort::Write " +
                     scripted::hex(core_frames::frame(211, piece(128, lenses_[0].low, 128, 2))));
  expected.emplace_back("PvDeviceSerialPort::GetRxBytesReady");
  for (int poll = 0; poll < 1000; ++poll) {  // the double never says that bytes are ready
    expected = joined(expected, {"usleep 1000 us", "PvDeviceSerialPort::GetRxBytesReady"});
  }
  expected.emplace_back("PvDeviceSerialPort::Read 1024 500");
  expected = joined(expected, closing());
  EXPECT_EQ(takeAll(), expected);
}

TEST_F(SffcTransferTest, LastPiece_IsPolledForUntilTenBytesAreReady) {
  useLenses({tables("L25mm", 1)});
  for (const uint32_t enough : {10U, 11U}) {
    replyToTransfer(0, 1, 256, 1);
    scripted::network().serial.ready = {0, 0, 0, 0, 9, enough};  // the first three are of the questions and the erasure
    EXPECT_EQ(core_.switchSFFC1(), 0);
    EXPECT_EQ(take({"usleep 1000 us"}), Log(2, "usleep 1000 us"));
  }
}

TEST_F(SffcTransferTest, EverySize_PiecesOf128AndTheRest) {
  for (const std::size_t size : {1U, 127U, 128U, 129U, 255U, 256U, 257U, 1280U}) {
    for (const Slot& slot : kSlots) {
      useLenses({tables("L25mm", size)});
      replyToTransfer(0x1000, static_cast<uint32_t>(size), 0x10000, 1);
      EXPECT_EQ(write(slot), 0) << size;
      std::vector<std::pair<uint8_t, Bytes>> expected = {{212, {0x00, 0x00}}};
      for (std::size_t offset = 0; offset < size; offset += 128) {
        const Bytes& table = lenses_[0].*slot.table;
        expected.emplace_back(uint8_t{211}, piece(static_cast<uint32_t>(0x1000 + offset), table, offset,
                                                  std::min<std::size_t>(128, size - offset)));
      }
      EXPECT_EQ(takeRequests(), joined(questions(slot), requests(expected))) << size;
    }
  }
}

TEST_F(SffcTransferTest, FullPiecesOnly_AreNotPolledFor) {
  useLenses({tables("L25mm", 256)});
  replyToTransfer(0, 256, 256, 1);
  EXPECT_EQ(core_.switchSFFC1(), 0);
  EXPECT_EQ(take({"usleep 1000 us"}), Log{});
}

TEST_F(SffcTransferTest, EmptyTable_NothingIsErasedOrWritten) {
  useLenses({tables("L25mm", 0)});
  replyToTransfer(0x1000, 0, 256, 0);
  EXPECT_EQ(core_.switchSFFC1(), 0);
  EXPECT_EQ(takeRequests(), questions(kSlots[0]));
}

TEST_F(SffcTransferTest, EraseRange_AllShapes) {
  const auto range = [](uint32_t address, uint32_t size, uint32_t base, uint32_t block) {
    const keocam::EraseRange result = keocam::eraseRange({address, size}, {base, block});
    return std::make_pair(static_cast<unsigned int>(result.first), result.count);
  };
  EXPECT_EQ(range(0, 512, 0, 256), std::make_pair(0U, 2U));
  EXPECT_EQ(range(0, 513, 0, 256), std::make_pair(0U, 3U));
  EXPECT_EQ(range(0, 511, 0, 256), std::make_pair(0U, 2U));
  EXPECT_EQ(range(0x300, 256, 0x100, 256), std::make_pair(2U, 1U));
  EXPECT_EQ(range(0x3FF, 256, 0x100, 256), std::make_pair(2U, 1U)) << "an address within a block";
  EXPECT_EQ(range(0, 0, 0, 256), std::make_pair(0U, 0U));
  EXPECT_EQ(range(0x1000, 300, 0, 0), std::make_pair(0U, 1U)) << "no block size: block 0, once";
  EXPECT_EQ(range(0x1000, 0, 0, 0), std::make_pair(0U, 0U));
  EXPECT_EQ(range(0x10000 * 16, 32, 0, 16), std::make_pair(0U, 2U)) << "numbers have 16 bits";
  EXPECT_EQ(range(0, 1'310'720, 0, 131'072), std::make_pair(0U, 10U));
  // An address below the base lies 2^32 above itself: 0xFFFFFF00 / 256 is 0xFFFFFF, of which 16 bits are kept.
  EXPECT_EQ(range(0x000, 512, 0x100, 256), std::make_pair(0xFFFFU, 2U));
  EXPECT_EQ(range(0x0FF, 512, 0x100, 0x1000), std::make_pair(0xFFFFU, 1U));
  // A block size with its top bit set is no negative one.
  EXPECT_EQ(range(0x1000, 300, 0, 0x80000000), std::make_pair(0U, 1U));
  EXPECT_EQ(range(0x80001000, 300, 0, 0x80000000), std::make_pair(1U, 1U));
  EXPECT_EQ(range(0x1000, 300, 0, 0xFFFFFFFF), std::make_pair(0U, 1U));
  EXPECT_EQ(range(0x1000, 300, 0x1001, 0xFFFFFFFF), std::make_pair(1U, 1U));
  EXPECT_EQ(range(0x1000, 0, 0, 0x80000000), std::make_pair(0U, 0U));
}

TEST_F(SffcTransferTest, OddBlockSizes_EraseOneBlockOnce) {
  struct Flash {
    uint32_t address;
    uint32_t block_bytes;
    Bytes erased;
  };
  const Flash flashes[] = {
      {0x1000, 0, {0x00, 0x00}}, {0x1000, 0xFFFFFF00, {0x00, 0x00}}, {0x80001000, 0x80000000, {0x00, 0x01}}};
  for (const Slot& slot : kSlots) {
    for (const Flash& flash : flashes) {
      replyToTransfer(flash.address, 300, flash.block_bytes, 1);
      EXPECT_EQ(write(slot), 0) << flash.block_bytes;
      const Bytes& table = lenses_[0].*slot.table;
      EXPECT_EQ(takeRequests(), joined(questions(slot), requests({{212, flash.erased},
                                                                  {211, piece(flash.address, table, 0, 128)},
                                                                  {211, piece(flash.address + 128, table, 128, 128)},
                                                                  {211, piece(flash.address + 256, table, 256, 44)}})))
          << flash.block_bytes;
    }
  }
}

TEST_F(SffcTransferTest, AddressBelowTheBase_BlockNumberIsThatOf32Bits) {
  replyToTransfer(0x000, 300, 256, 2, 0x100);
  EXPECT_EQ(core_.switchSFFC1(), 0);
  const Log sent = takeRequests();
  EXPECT_EQ(Log(sent.begin() + 2, sent.begin() + 4), requests({{212, {0xFF, 0xFF}}, {212, {0x00, 0x00}}}));
}

TEST_F(SffcTransferTest, BlockNumber_PassesFrom65535To0) {
  useLenses({tables("L25mm", 3)});
  replyToTransfer(0xFFFE, 3, 1, 3);
  EXPECT_EQ(core_.switchSFFC1(), 0);
  const Log sent = takeRequests();
  EXPECT_EQ(Log(sent.begin() + 2, sent.begin() + 5),
            requests({{212, {0xFF, 0xFE}}, {212, {0xFF, 0xFF}}, {212, {0x00, 0x00}}}));
}

TEST_F(SffcTransferTest, NoSuchLens_Throws) {
  for (const int32_t index : {2, -1}) {
    currentLensNumber = index;
    EXPECT_THROW(core_.switchSFFC1(), std::out_of_range);
    EXPECT_THROW(core_.switchSFFC2(), std::out_of_range);
  }
  EXPECT_EQ(takeAll(), Log{});
}

}  // namespace
